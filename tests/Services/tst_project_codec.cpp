#include "ProjectCodec.h"
#include "ProjectTemplates.h"
#include "Records.h"
#include "TestSupport.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <functional>
#include <limits>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace {

std::optional<ZelvoProject> currentProject(const QByteArray &bytes)
{
    const auto document = ProjectCodec::decode(bytes);
    const auto *project = document ? std::get_if<ZelvoProject>(&*document) : nullptr;
    return project ? std::optional(*project) : std::nullopt;
}

QByteArray encoded(const ZelvoProject &project)
{
    return ProjectCodec::encode(project).value_or(QByteArray());
}

std::optional<LegacyQuenaraDocument> legacyDocument(const QByteArray &bytes)
{
    const auto document = ProjectCodec::decode(bytes);
    const auto *legacy = document ? std::get_if<LegacyQuenaraDocument>(&*document) : nullptr;
    return legacy ? std::optional(*legacy) : std::nullopt;
}

QByteArray jsonOf(const QJsonValue &value)
{
    return QJsonDocument(value.toObject()).toJson();
}

/// The text of \a bytes with the one occurrence of \a before replaced.
QByteArray replaced(QByteArray bytes, const QByteArray &before, const QByteArray &after)
{
    return bytes.count(before) == 1 ? bytes.replace(before, after) : QByteArray();
}

// The shape of a current document, apart from the records.

/// The keys that a record may lack, by the key under which it stands in a document. A slide may
/// lack them all.
const QHash<QString, QStringList> &optionalKeys()
{
    static const QHash<QString, QStringList> keys = {
        {u"serviceItems"_s, {u"subtitle"_s}},
        {u"design"_s, {u"themeId"_s}},
        {u"background"_s, {u"gradient"_s, u"image"_s, u"video"_s}},
        {u"video"_s, {u"dataUrl"_s}},
        {u"elements"_s, {u"text"_s, u"image"_s, u"shape"_s, u"lowerThird"_s}},
        {u"text"_s, {u"shadow"_s, u"outline"_s, u"backgroundFill"_s}},
        {u"shape"_s, {u"stroke"_s}},
    };
    return keys;
}

bool isOptional(const QString &record, const QString &key)
{
    return record == u"slides"_s || optionalKeys().value(record).contains(key);
}

/// What is done with one key of one object of a document: given the record's name and the key,
/// the values to try in the place of the present one (undefined: the key is removed).
struct Variant
{
    QJsonValue value;
    bool staysReadable;
};
using Variants = std::function<QList<Variant>(const QString &record, const QString &key,
                                              const QJsonValue &present)>;

/// Calls \a visit with the whole document for every variant of every key in \a value, which
/// stands under \a name and is put back into its document by \a rebuild.
void forEachVariant(const QJsonValue &value, const QString &name, const QString &path,
                    const std::function<QJsonValue(const QJsonValue &)> &rebuild,
                    const Variants &variants,
                    const std::function<void(const QString &, const QJsonValue &, bool)> &visit)
{
    if (value.isArray()) {
        const QJsonArray array = value.toArray();
        for (qsizetype i = 0; i < array.size(); ++i) {
            const auto rebuildWith = [&](const QJsonValue &changed) {
                QJsonArray copy = array;
                copy[i] = changed;
                return rebuild(copy);
            };
            forEachVariant(array[i], name, u"%1[%2]"_s.arg(path).arg(i), rebuildWith, variants,
                           visit);
        }
    } else if (value.isObject()) {
        const QJsonObject object = value.toObject();
        for (const QString &key : object.keys()) {
            if (key == u"somethingThatNobodyKnows"_s)
                continue;
            const QString keyPath = path + u'.' + key;
            const auto rebuildWith = [&](const QJsonValue &changed) {
                QJsonObject copy = object;
                copy.remove(key);
                if (!changed.isUndefined())
                    copy.insert(key, changed);
                return rebuild(copy);
            };
            for (const Variant &variant : variants(name, key, object[key]))
                visit(keyPath, rebuildWith(variant.value), variant.staysReadable);
            forEachVariant(object[key], key, keyPath, rebuildWith, variants, visit);
        }
    }
}

/// Verifies for every variant of every key of the sample that it reads as a current document just
/// when it should; says how many there were.
int compareVariants(const Variants &variants)
{
    const QJsonValue sample = QJsonDocument::fromJson(dataBytes(u"current.quenara"_s)).object();
    int count = 0;
    forEachVariant(
        sample, u"project"_s, u""_s, [](const QJsonValue &value) { return value; }, variants,
        [&count](const QString &path, const QJsonValue &document, bool staysReadable) {
            ++count;
            QVERIFY2(currentProject(jsonOf(document)).has_value() == staysReadable,
                     qPrintable(path));
        });
    return count;
}

} // namespace

class TestProjectCodec : public QObject
{
    Q_OBJECT

private slots:
    void aCurrentDocumentIsReadFieldByField()
    {
        const auto project = currentProject(dataBytes(u"current.quenara"_s));
        QVERIFY(project);
        QCOMPARE(project->id, u"0D8A9C52-6B0F-4E5E-9E0B-8F4C3A1B2D10"_s);
        QCOMPARE(project->name, u"Abendgottesdienst \u2013 Gr\u00f6\u00dfe 7"_s);
        QCOMPARE(project->schemaVersion, 2);
        QCOMPARE(project->kind, ProjectKind::event);
        QCOMPARE(project->updatedAt, someTime());
        QCOMPARE(project->serviceItems.size(), 2);
        const ServiceItem &first = project->serviceItems.at(0);
        const ServiceItem &second = project->serviceItems.at(1);
        QCOMPARE(first.slides.size(), 2);
        QCOMPARE(first.id, u"ITEM-1"_s);
        QCOMPARE(first.title, u"Gathering"_s);
        QCOMPARE(first.type, ServiceItemType::welcome);
        QCOMPARE(first.subtitle, u"Doors at six"_s);
        QCOMPARE(second.orderIndex, 1);
        QVERIFY(!second.subtitle);
        QCOMPARE(second.slides.size(), 1);
        QCOMPARE(second.slides.first().body, u"One line\nand \"another\"\tone"_s);
        QCOMPARE(withoutIdentifiers(second.slides.first().design),
                 withoutIdentifiers(SlideDesign::centeredLyric(u"One line\nand \"another\"\tone"_s,
                                                               u"centerLyric"_s)));
    }

    void everyOptionalOfASlideIsRead()
    {
        const auto project = currentProject(dataBytes(u"current.quenara"_s));
        QVERIFY(project);
        const Slide &slide = project->serviceItems.first().slides.first();
        QCOMPARE(slide.footer, u"Foyer"_s);
        QCOMPARE(slide.image,
                 (SlideMedia{"data:image/gif;base64,R0lGODlhAQABAAAAACw=", u"dot.gif"_s,
                             u"image/gif"_s}));
        QCOMPARE(slide.audio,
                 (SlideMedia{"data:audio/wav;base64,UklGRg==", u"bell.wav"_s, u"audio/wav"_s}));
        const SlideDesign &design = slide.design;
        QCOMPARE(design.canvasSize, (CanvasSize{1920, 1080}));
        QVERIFY(!design.safeAreaEnabled);
        QCOMPARE(design.themeId, u"welcome"_s);
        const SlideBackground background{
            .kind = SlideBackgroundKind::video,
            .solidColor = {0.1, 0.2, 0.3, 1},
            .gradient =
                GradientBackground{{0, 0, 0, 1}, {1, 1, 1, 0.5}, GradientDirection::radialHint},
            .image =
                SlideMedia{"data:image/png;base64,iVBORw0KGgo=", u"stars.png"_s, u"image/png"_s},
            .video = VideoBackground{u"clouds.mp4"_s, "data:video/mp4;base64,AAAA"},
            .blurAmount = 4.5,
            .dimAmount = 0.25,
        };
        QCOMPARE(design.background, background);
    }

    void everyKindOfLayerIsRead()
    {
        const auto project = currentProject(dataBytes(u"current.quenara"_s));
        QVERIFY(project);
        const QList<SlideElement> &layers =
            project->serviceItems.first().slides.first().design.elements;
        QCOMPARE(layers.size(), 4);
        const SlideElement words{
            .id = u"LAYER-1"_s,
            .name = u"Words"_s,
            .kind = SlideElementKind::scriptureText,
            .frame = {-10.5, 20, 300, 200},
            .rotation = 12.5,
            .opacity = 0.75,
            .locked = true,
            .visible = true,
            .zIndex = -2,
            .text = TextElementProperties{u"Come in"_s,
                                          u"Lato"_s,
                                          64,
                                          TextFontWeight::heavy,
                                          {1, 1, 0, 1},
                                          TextAlignmentValue::right,
                                          1.2,
                                          2,
                                          true,
                                          TextShadow{{0, 0, 0, 0.5}, 6, 1, 2},
                                          TextOutline{{0, 0, 1, 1}, 3},
                                          RGBAColor{0.5, 0.5, 0.5, 0.5},
                                          9},
            .image = {},
            .shape = {},
            .lowerThird = {},
        };
        QCOMPARE(layers.at(0), words);
        QVERIFY(!layers.at(1).visible);
        QCOMPARE(layers.at(1).image,
                 (SlideMedia{"data:image/jpeg;base64,/9j/4A==", u"choir.jpg"_s, u"image/jpeg"_s}));
        QCOMPARE(
            layers.at(2).shape,
            (ShapeProperties{ShapeKind::capsule, {1, 0, 0, 1}, RGBAColor{0, 1, 0, 1}, 2.5, 12}));
        QCOMPARE(
            layers.at(3).lowerThird,
            (LowerThirdProperties{u"A. Speaker"_s, u"Guest"_s, {0, 0, 0, 0.8}, {1, 0.5, 0, 1}}));
    }

    void optionalsThatAreMissingOrNullAreEmpty()
    {
        const auto project = currentProject(dataBytes(u"current.quenara"_s));
        QVERIFY(project);
        const Slide &slide = project->serviceItems.first().slides.at(1);
        QVERIFY(!slide.footer);
        QVERIFY(!slide.image);
        QVERIFY(!slide.audio);
        QVERIFY(!slide.design.themeId);
        QVERIFY(!slide.design.background.gradient);
        QVERIFY(!slide.design.background.image);
        QVERIFY(!slide.design.background.video);
        const SlideElement &layer = slide.design.elements.first();
        QVERIFY(!layer.image);
        QVERIFY(!layer.shape);
        QVERIFY(!layer.lowerThird);
        QVERIFY(!layer.text->shadow);
        QVERIFY(!layer.text->outline);
        QVERIFY(!layer.text->backgroundFill);
    }

    void anEmptySlideObjectIsADefaultSlide()
    {
        const auto project = currentProject(dataBytes(u"empty-slides.quenara"_s));
        QVERIFY(project);
        const QList<Slide> &slides = project->serviceItems.first().slides;
        QCOMPARE(slides.size(), 2);
        for (const Slide &slide : slides) {
            QVERIFY(!slide.id.isEmpty());
            QCOMPARE(slide.title, u"Slide"_s);
            QCOMPARE(slide.body, QString());
            QCOMPARE(slide.orderIndex, 0);
            QVERIFY(!slide.footer);
            QVERIFY(!slide.image);
            QVERIFY(!slide.audio);
            QCOMPARE(withoutIdentifiers(slide.design),
                     withoutIdentifiers(SlideDesign::centeredLyric(QString(), u"centerLyric"_s)));
        }
        QVERIFY(slides.at(0).id != slides.at(1).id);
    }

    void aMissingKeyFailsJustWhereItIsRequired()
    {
        const int count = compareVariants(
            [](const QString &record, const QString &key, const QJsonValue &) -> QList<Variant> {
                return {{QJsonValue(QJsonValue::Undefined), isOptional(record, key)},
                        {QJsonValue(QJsonValue::Null), isOptional(record, key)}};
            });
        QVERIFY(count > 300);
    }

    void aValueOfAnotherTypeFailsEverywhere()
    {
        const int count =
            compareVariants([](const QString &, const QString &, const QJsonValue &present) {
                QList<Variant> others;
                for (const QJsonValue &other :
                     {QJsonValue(u"no such word"_s), QJsonValue(1.5), QJsonValue(true),
                      QJsonValue(QJsonArray{7}), QJsonValue(QJsonObject{{u"x"_s, 7}})}) {
                    if (!present.isNull() && other.type() != present.type())
                        others.append({other, false});
                }
                return others;
            });
        QVERIFY(count > 600);
    }

    void everythingThatIsNoCurrentDocumentFailsAsOne_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QByteArray>("after");
        const auto row = [](const char *name, const QByteArray &before, const QByteArray &after) {
            QTest::newRow(name) << before << after;
        };
        row("the type of an item with a capital", R"("type": "song")", R"("type": "Song")");
        row("an unknown kind of project", R"("kind": "event")", R"("kind": "wedding")");
        row("an empty weight", R"("weight": "heavy")", R"("weight": "")");
        row("a fraction for an integer", "\"zIndex\": -2", "\"zIndex\": -2.5");
        row("an integer beyond 64 bits", "\"zIndex\": -2", "\"zIndex\": 18446744073709551615");
        row("a date with a fraction of a second", "09:30:00Z", "09:30:00.000Z");
        row("a date with an offset", "09:30:00Z", "09:30:00+00:00");
        row("a date that does not exist", "2026-03-01T", "2026-02-30T");
        row("a null among the slides",
            "\"slides\": [\n"
            "                {\n"
            "                    \"id\": \"SLIDE-3\",",
            "\"slides\": [ null,\n"
            "                {\n"
            "                    \"id\": \"SLIDE-3\",");
    }

    void everythingThatIsNoCurrentDocumentFailsAsOne()
    {
        QFETCH(QByteArray, before);
        QFETCH(QByteArray, after);
        const QByteArray bytes = replaced(dataBytes(u"current.quenara"_s), before, after);
        QVERIFY(!QJsonDocument::fromJson(bytes).isNull());
        QVERIFY(!currentProject(bytes));
    }

    void aWholeNumberWrittenWithAFractionIsAnInteger()
    {
        const auto project = currentProject(
            replaced(dataBytes(u"current.quenara"_s), "\"zIndex\": -2", "\"zIndex\": -2.0"));
        QVERIFY(project);
        QCOMPARE(project->serviceItems.first().slides.first().design.elements.first().zIndex, -2);
    }

    void aCurrentDocumentWithoutItemsIsReadAsALegacyOne()
    {
        const auto legacy =
            legacyDocument("{\"id\":\"P\",\"name\":\"N\",\"schemaVersion\":2,\"kind\":\"service\","
                           "\"updatedAt\":\"2026-03-01T09:30:00Z\",\"serviceItems\":[]}");
        QVERIFY(legacy);
        LegacyQuenaraDocument expected;
        expected.id = u"P"_s;
        expected.name = u"N"_s;
        expected.kind = ProjectKind::service;
        expected.updatedAt = someTime();
        expected.serviceItems = QList<ServiceItem>();
        QCOMPARE(*legacy, expected);
    }

    void aLegacyDocumentIsReadWithWhatItHas()
    {
        const auto legacy = legacyDocument(dataBytes(u"legacy-flat.json"_s));
        QVERIFY(legacy);
        LegacyQuenaraDocument expected;
        expected.id = u"OLD-1"_s;
        expected.title = u"Harvest Festival"_s;
        expected.updatedAt = QDateTime(QDate(2019, 10, 6), QTime(8, 0), Qt::UTC);
        LegacySlide first;
        first.id = u"S1"_s;
        first.title = u"Opening"_s;
        first.body = u"We plough the fields"_s;
        first.text = u"ignored"_s;
        first.orderIndex = 4;
        first.footer = u"Hymn 1"_s;
        LegacySlide second;
        second.text = u"All good gifts"_s;
        second.image =
            SlideMedia{"data:image/png;base64,iVBORw0KGgo=", u"field.png"_s, u"image/png"_s};
        second.audio = SlideMedia{"data:audio/wav;base64,UklGRg==", u"organ.wav"_s, u"audio/wav"_s};
        expected.slides = {first, second, LegacySlide()};
        QCOMPARE(*legacy, expected);
    }

    void emojiOfALegacyDocumentAreRead()
    {
        const auto legacy = legacyDocument(dataBytes(u"legacy-emoji.json"_s));
        QVERIFY(legacy);
        QCOMPARE(legacy->slides->size(), 3);
        QCOMPARE(legacy->slides->at(0).emoji, u"\u271d"_s);
        QCOMPARE(legacy->slides->at(1).emoji, u"\U0001F3B5"_s);
        QVERIFY(!legacy->slides->at(2).emoji);
    }

    void anEmptyObjectIsALegacyDocument()
    {
        QCOMPARE(legacyDocument(dataBytes(u"empty-object.json"_s)), LegacyQuenaraDocument());
    }

    void whatIsNoDocumentAtAllGivesNothing_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("no bytes") << QByteArray();
        QTest::newRow("white space") << QByteArray(" \n");
        QTest::newRow("broken JSON") << dataBytes(u"broken.json"_s);
        QTest::newRow("an array") << dataBytes(u"array.json"_s);
        QTest::newRow("a text") << QByteArray("\"{}\"");
        QTest::newRow("null") << QByteArray("null");
        QTest::newRow("two objects") << QByteArray("{} {}");
        QTest::newRow("a comma too many") << QByteArray(R"({"id":"P",})");
        QTest::newRow("a NUL byte in a text") << QByteArray("{\"id\":\"P\0\"}", 11);
        QTest::newRow("bytes that are no UTF-8") << QByteArray("{\"id\":\"\xff\"}");
        QTest::newRow("a legacy key of another type") << QByteArray("{\"name\":7}");
        QTest::newRow("a legacy slide of another type") << QByteArray("{\"slides\":[[]]}");
        QTest::newRow("a number beyond all bounds") << QByteArray("{\"x\":1e999}");
        QTest::newRow("too deep a nesting")
            << QByteArray("{\"x\":") + QByteArray(100000, '[') + QByteArray(100000, ']') + "}";
    }

    void whatIsNoDocumentAtAllGivesNothing()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!ProjectCodec::decode(bytes));
    }

    void everyTruncationOfADocumentGivesNothing()
    {
        const QByteArray bytes = dataBytes(u"current.quenara"_s).trimmed();
        QVERIFY(currentProject(bytes));
        for (qsizetype length = 0; length < bytes.size(); ++length) {
            QVERIFY2(!ProjectCodec::decode(bytes.first(length)),
                     QByteArray::number(length).constData());
        }
    }

    void theLastOfSeveralEqualKeysCounts()
    {
        QCOMPARE(legacyDocument("{\"name\":\"first\",\"name\":\"last\"}")->name, u"last"_s);
    }

    void aWrittenProjectReadsBackTheSame_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("everything filled") << encoded(Values::filled<ZelvoProject>());
        QTest::newRow("written by hand") << dataBytes(u"current.quenara"_s);
        QTest::newRow("the demo") << encoded(ProjectTemplates::demoProject(someTime()));
    }

    void aWrittenProjectReadsBackTheSame()
    {
        QFETCH(QByteArray, bytes);
        const auto project = currentProject(bytes);
        QVERIFY(project);
        const QByteArray written = encoded(*project);
        QCOMPARE(currentProject(written), project);
        QCOMPARE(encoded(*project), written);
    }

    void realNumbersReadBackToTheLastBit()
    {
        ZelvoProject project = showOf({1});
        const QList<double> numbers = {0.1,  1.0 / 3,  -0.0, 5e-324, 1.7976931348623157e308,
                                       1e21, 123456789};
        for (const double number : numbers) {
            project.serviceItems[0].slides[0].design.elements[0].rotation = number;
            const auto read = currentProject(encoded(project));
            QVERIFY(read);
            QCOMPARE(*read, project);
        }
    }

    void aNumberThatIsNotFiniteCannotBeWritten()
    {
        ZelvoProject project = showOf({2});
        double &rotation = project.serviceItems[0].slides[0].design.elements[0].rotation;
        for (const double number :
             {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
              -std::numeric_limits<double>::infinity()}) {
            rotation = number;
            QVERIFY(!ProjectCodec::encode(project));
        }
        rotation = 0;
        QVERIFY(ProjectCodec::encode(project));
    }

    void textsReadBackWhateverTheirCharacters()
    {
        ZelvoProject project = showOf({1});
        project.name = u"\"quoted\" \\ / \b\f\n\r\t \u0001 \u2028 \U0001F3B5 \u0645\u0631\u062d"_s;
        QCOMPARE(currentProject(encoded(project)), project);
    }

    void aDocumentIsPrettyPrintedWithSortedKeys()
    {
        const QByteArray bytes = encoded(Values::filled<ZelvoProject>());
        QVERIFY(bytes.count('\n') > 100);
        // QJsonObject keeps its keys sorted: walking both texts side by side compares the order.
        const auto keysOf = [](const QByteArray &json) {
            QByteArrayList keys;
            for (const QByteArray &line : json.split('\n')) {
                const QByteArray text = line.trimmed();
                if (text.startsWith('"') && text.contains("\":"))
                    keys.append(text.first(text.indexOf("\":")));
            }
            return keys;
        };
        const QByteArray sorted = QJsonDocument::fromJson(bytes).toJson();
        QVERIFY(keysOf(bytes).size() > 100);
        QCOMPARE(keysOf(bytes), keysOf(sorted));
    }

    void emptyOptionalsAreLeftOut()
    {
        ZelvoProject project = showOf({1});
        const QJsonObject item =
            QJsonDocument::fromJson(encoded(project)).object()[u"serviceItems"_s][0].toObject();
        QCOMPARE(item.keys(),
                 (QStringList{u"id"_s, u"orderIndex"_s, u"slides"_s, u"title"_s, u"type"_s}));
        QCOMPARE(item[u"slides"_s][0].toObject().keys(),
                 (QStringList{u"body"_s, u"design"_s, u"id"_s, u"orderIndex"_s, u"title"_s}));
        QVERIFY(!encoded(project).contains("null"));
    }

    void datesAndEnumerationsAreWrittenAsTexts()
    {
        const QJsonObject project = QJsonDocument::fromJson(encoded(showOf({1}))).object();
        QCOMPARE(project[u"updatedAt"_s], QJsonValue(u"2026-03-01T09:30:00Z"_s));
        QCOMPARE(project[u"kind"_s], QJsonValue(u"service"_s));
        QCOMPARE(project[u"schemaVersion"_s], QJsonValue(2));
    }
};

QTEST_APPLESS_MAIN(TestProjectCodec)
#include "tst_project_codec.moc"
