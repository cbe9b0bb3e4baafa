#include "Documents.h"
#include "Records.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

#include <cmath>
#include <functional>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_document_keys {

template<class T>
inline constexpr bool isList = false;
template<class T>
inline constexpr bool isList<QList<T>> = true;

namespace {

QByteArray jsonOf(const QJsonValue &value)
{
    return QJsonDocument(value.toObject()).toJson();
}

QJsonObject objectOf(const QByteArray &bytes)
{
    return QJsonDocument::fromJson(bytes).object();
}

/// A current document with every key, and one of everything that there is a list of.
QJsonObject filledDocument()
{
    return objectOf(encoded(Values::filled<ZelvoProject>()));
}

QString keyOf(std::string_view name)
{
    return QString::fromUtf8(name.data(), qsizetype(name.size()));
}

// What the field lists say of a document, worked out without the reader under test.

template<class AnyField>
constexpr bool mayBeMissing = !std::decay_t<AnyField>::isRequired;

/// Values of every type of JSON, none of which names a case of an enumeration or a date.
const QList<QJsonValue> &strayValues()
{
    static const QList<QJsonValue> values = {
        QJsonValue::Null, true, 7, 2.5, u"a word"_s, QJsonArray(), QJsonArray{7}, QJsonObject()};
    return values;
}

/// Says whether the stray \a value may stand for a \a T.
template<class T>
bool fits(const QJsonValue &value)
{
    if constexpr (isOptional<T>) {
        return value.isNull() || fits<typename T::value_type>(value);
    } else if constexpr (Record<T>) {
        bool allMayBeMissing = true;
        forEachField<T>(
            [&](const auto &f) { allMayBeMissing = allMayBeMissing && mayBeMissing<decltype(f)>; });
        return value.isObject() && allMayBeMissing;
    } else if constexpr (std::is_same_v<T, bool>) {
        return value.isBool();
    } else if constexpr (std::is_same_v<T, double>) {
        return value.isDouble();
    } else if constexpr (std::is_same_v<T, std::int64_t>) {
        return value.isDouble() && std::trunc(value.toDouble()) == value.toDouble();
    } else if constexpr (std::is_same_v<T, QString> || std::is_same_v<T, QByteArray>) {
        return value.isString();
    } else if constexpr (isList<T>) {
        return value.isArray() && value.toArray().isEmpty();
    } else {
        return false;
    }
}

/// Puts a changed value in its place in a document.
using Rebuild = std::function<QJsonValue(const QJsonValue &)>;
/// Sees a document with one change at \a path, after which the changed value fits or does not.
using Visit = std::function<void(const QString &path, const QJsonValue &document, bool fits)>;

template<class T>
void forEachChange(const QJsonValue &value, const QString &path, const Rebuild &rebuild,
                   const Visit &visit);

/// Visits \a object with the key of \a f removed, set to each stray value, and changed inside.
template<class AnyField>
void forEachChangeOf(const AnyField &f, const QJsonObject &object, const QString &path,
                     const Rebuild &rebuild, const Visit &visit)
{
    const QString key = keyOf(f.name);
    const QString keyPath = path + u'.' + key;
    QJsonObject without = object;
    without.remove(key);
    visit(keyPath + u" missing"_s, rebuild(without), mayBeMissing<AnyField>);
    const auto rebuildWith = [&](const QJsonValue &changed) {
        QJsonObject copy = object;
        copy.insert(key, changed);
        return rebuild(copy);
    };
    // Where a key may be missing, a null says the same.
    const auto visitKey = [&](const QString &changePath, const QJsonValue &document,
                              bool changeFits) {
        const bool isNullAllowed = changePath == keyPath + u" null"_s && mayBeMissing<AnyField>;
        visit(changePath, document, changeFits || isNullAllowed);
    };
    forEachChange<typename AnyField::Type>(object[key], keyPath, rebuildWith, visitKey);
}

/// Visits the document for every change of \a value, which stands for a \a T, and all inside it.
template<class T>
void forEachChange(const QJsonValue &value, const QString &path, const Rebuild &rebuild,
                   const Visit &visit)
{
    if constexpr (isOptional<T>) {
        forEachChange<typename T::value_type>(value, path, rebuild, visit);
        return;
    }
    for (const QJsonValue &stray : strayValues()) {
        const QString name = stray.isNull()
            ? u"null"_s
            : QString::fromUtf8(QJsonDocument(QJsonArray{stray}).toJson(QJsonDocument::Compact));
        visit(path + u' ' + name, rebuild(stray), fits<T>(stray));
    }
    if constexpr (Record<T>) {
        forEachField<T>(
            [&](const auto &f) { forEachChangeOf(f, value.toObject(), path, rebuild, visit); });
    } else if constexpr (isList<T>) {
        const QJsonArray array = value.toArray();
        QVERIFY2(!array.isEmpty(), qPrintable(path));
        const auto rebuildWith = [&](const QJsonValue &changed) {
            QJsonArray copy = array;
            copy[0] = changed;
            return rebuild(copy);
        };
        forEachChange<typename T::value_type>(array[0], path + u"[]"_s, rebuildWith, visit);
    }
}

/// Visits the filled document for every change of its one item and all inside it.
void forEachChangeOfAnItem(const Visit &visit)
{
    const QJsonObject sample = filledDocument();
    const auto rebuild = [&sample](const QJsonValue &item) {
        QJsonObject copy = sample;
        copy.insert(u"serviceItems"_s, QJsonArray{item});
        return copy;
    };
    forEachChange<ServiceItem>(sample[u"serviceItems"_s][0], u"item"_s, rebuild, visit);
}

/// Says whether the older layout takes \a value under \a key, which it may also not know.
bool legacyLayoutTakes(const QString &key, const QJsonValue &value)
{
    bool takes = true;
    forEachField<LegacyQuenaraDocument>(
        [&]<class Member, class WhenMissing>(
            const Field<LegacyQuenaraDocument, Member, WhenMissing> &f) {
            takes = takes && (keyOf(f.name) != key || fits<Member>(value));
        });
    return takes;
}

} // namespace

class TestDocumentKeys : public QObject
{
    Q_OBJECT

private slots:
    void everyItemIsReadJustWhenAllInItFits()
    {
        int count = 0;
        forEachChangeOfAnItem([&count](const QString &path, const QJsonValue &document, bool fits) {
            ++count;
            // The older layout has the same items, so that it cannot stand in.
            QVERIFY2(readingOf(jsonOf(document)) == (fits ? Reading::current : Reading::nothing),
                     qPrintable(path));
        });
        QVERIFY(count > 1000);
    }

    void everyKeyOfTheProjectIsNeededAndTyped()
    {
        const QJsonObject sample = filledDocument();
        const auto compare = [](const QJsonObject &document, const QString &key, bool fits) {
            const Reading otherwise =
                legacyLayoutTakes(key, document.value(key)) ? Reading::legacy : Reading::nothing;
            QVERIFY2(readingOf(jsonOf(document)) == (fits ? Reading::current : otherwise),
                     jsonOf(document).constData());
        };
        forEachField<ZelvoProject>([&]<class Member, class WhenMissing>(
                                       const Field<ZelvoProject, Member, WhenMissing> &f) {
            const QString key = keyOf(f.name);
            QJsonObject document = sample;
            document.remove(key);
            QCOMPARE(readingOf(jsonOf(document)), Reading::legacy);
            for (const QJsonValue &stray : strayValues()) {
                document.insert(key, stray);
                // Without an item, a current document is read as a legacy one.
                compare(document, key, fits<Member>(stray) && !stray.isArray());
            }
        });
    }

    void everyLegacyKeyIsOptionalAndTyped()
    {
        QJsonObject sample = objectOf(dataBytes(u"legacy-every-key.json"_s));
        sample.insert(u"serviceItems"_s, filledDocument()[u"serviceItems"_s]);
        QVERIFY(legacyDocument(jsonOf(sample)));
        int count = 0;
        forEachChange<LegacyQuenaraDocument>(
            sample, u"document"_s, [](const QJsonValue &value) { return value; },
            [&count](const QString &path, const QJsonValue &document, bool fits) {
                if (!document.isObject())
                    return;
                ++count;
                QVERIFY2(readingOf(jsonOf(document)) == (fits ? Reading::legacy : Reading::nothing),
                         qPrintable(path));
            });
        QVERIFY(count > 200);
    }

    void theseKeysAloneMayBeMissing()
    {
        QStringList dispensable;
        forEachChangeOfAnItem(
            [&dispensable](const QString &path, const QJsonValue &document, bool) {
                if (path.endsWith(u" missing"_s) && currentProject(jsonOf(document)))
                    dispensable.append(path.section(u' ', 0, 0).section(u"slides[]"_s, 1));
            });
        const QString background = u".design.background"_s;
        const QString layer = u".design.elements[]"_s;
        QCOMPARE(dispensable,
                 (QStringList{u""_s, // the item's subtitle
                              u".id"_s,
                              u".title"_s,
                              u".body"_s,
                              u".orderIndex"_s,
                              u".footer"_s,
                              u".image"_s,
                              u".audio"_s,
                              u".design"_s,
                              background + u".gradient"_s,
                              background + u".image"_s,
                              background + u".video"_s,
                              background + u".video.dataUrl"_s,
                              layer + u".text"_s,
                              layer + u".text.shadow"_s,
                              layer + u".text.outline"_s,
                              layer + u".text.backgroundFill"_s,
                              layer + u".image"_s,
                              layer + u".shape"_s,
                              layer + u".shape.stroke"_s,
                              layer + u".lowerThird"_s,
                              u".design.themeId"_s}));
    }

    void whatASlideLacksIsFilledIn()
    {
        const auto sample = Values::filled<ZelvoProject>();
        const Slide whole = sample.serviceItems.first().slides.first();
        const Slide defaults{
            .id = QString(),
            .title = u"Slide"_s,
            .body = QString(),
            .orderIndex = 0,
            .footer = std::nullopt,
            .image = std::nullopt,
            .audio = std::nullopt,
            .design = SlideDesign::centeredLyric(whole.body, u"centerLyric"_s),
        };
        const QJsonObject document = objectOf(encoded(sample));
        forEachField<Slide>([&](const auto &f) {
            QJsonObject item = document[u"serviceItems"_s][0].toObject();
            QJsonObject slide = item[u"slides"_s][0].toObject();
            slide.remove(keyOf(f.name));
            item.insert(u"slides"_s, QJsonArray{slide});
            QJsonObject lacking = document;
            lacking.insert(u"serviceItems"_s, QJsonArray{item});

            const auto project = currentProject(jsonOf(lacking));
            QVERIFY2(project, f.name.data());
            const Slide read = project->serviceItems.first().slides.first();
            Slide expected = whole;
            expected.*f.member = defaults.*f.member;
            QCOMPARE(withoutIdentifiers(read), withoutIdentifiers(expected));
            static const QRegularExpression fresh(u"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"_s);
            QCOMPARE(fresh.match(read.id).hasMatch(), f.name == "id");
        });
    }
};

QUENARA_TEST(TestDocumentKeys)

} // namespace tst_document_keys

#include "tst_document_keys.moc"
