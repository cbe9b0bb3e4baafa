#include "Documents.h"
#include "ProjectTemplates.h"
#include "Records.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>
#include <QTimeZone>

#include <limits>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_project_codec {

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
        expected.updatedAt = QDateTime(QDate(2019, 10, 6), QTime(8, 0), QTimeZone::utc()).toUTC();
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
            QVERIFY_THROWS_EXCEPTION(ProjectEncodingError, (void)ProjectCodec::encode(project));
        }
        rotation = 0;
        QVERIFY(!ProjectCodec::encode(project).isEmpty());
    }

    void textsReadBackWhateverTheirCharacters()
    {
        ZelvoProject project = showOf({1});
        project.name = u"\"quoted\" \\ / \b\f\n\r\t \u0001 \u2028 \U0001F3B5 \u0645\u0631\u062d"_s;
        QCOMPARE(currentProject(encoded(project)), project);
    }

    void equalMediaOfADocumentIsKeptOnce()
    {
        const QByteArray url = "data:image/png;base64," + QByteArray(1000, 'A');
        const auto media = [&url](const QString &name) {
            return SlideMedia{QByteArray(url.constData(), url.size()), name, u"image/png"_s};
        };
        ZelvoProject project = showOf({1, 1});
        Slide &first = project.serviceItems[0].slides[0];
        first.image = media(u"one"_s);
        first.audio = media(u"sound"_s);
        first.design.background.image = media(u"background"_s);
        first.design.background.video = VideoBackground{u"film"_s, media({}).dataUrl};
        first.design.elements[1].image = media(u"layer"_s);
        Slide &second = project.serviceItems[1].slides[0];
        second.image = media(u"two"_s);
        second.audio = SlideMedia{url + 'B', u"another"_s, u"image/png"_s};

        const auto read = currentProject(encoded(project));
        QCOMPARE(read, project);
        const Slide &one = read->serviceItems.at(0).slides.at(0);
        const Slide &two = read->serviceItems.at(1).slides.at(0);
        const QByteArray &kept = one.image->dataUrl;
        for (const QByteArray &other :
             {one.audio->dataUrl, one.design.background.image->dataUrl,
              *one.design.background.video->dataUrl, one.design.elements.at(1).image->dataUrl,
              two.image->dataUrl}) {
            QVERIFY(isSharedWith(other, kept));
        }
        QVERIFY(!isSharedWith(two.audio->dataUrl, kept));
    }

    void equalMediaOfALegacyDocumentIsKeptOnce()
    {
        const QByteArray media = R"({"dataUrl":"data:,a","name":"n","mimeType":"text/plain"})";
        const auto legacy =
            legacyDocument(R"({"slides":[{"image":)" + media + R"(},{"audio":)" + media + "}]}");
        QVERIFY(legacy);
        QVERIFY(isSharedWith(legacy->slides->at(0).image->dataUrl,
                             legacy->slides->at(1).audio->dataUrl));
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

QUENARA_TEST(TestProjectCodec)

} // namespace tst_project_codec

#include "tst_project_codec.moc"
