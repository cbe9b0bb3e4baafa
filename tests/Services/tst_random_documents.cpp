#include "Documents.h"
#include "ProjectFileService.h"
#include "ProjectNormalizer.h"
#include "RandomProject.h"
#include "Records.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QTest>

#include <clocale>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_random_documents {

namespace {

void addSeeds()
{
    constexpr unsigned count = 250;
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= count; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

// Each agrees() compares a value of a record with its value in the tree of another library.

/// That library drops some byte-order marks that begin a text; fromUtf8() drops them all.
bool agrees(const QJsonValue &json, const QByteArray &value)
{
    return json.isString()
        && QString::fromUtf8(json.toString().toUtf8()) == QString::fromUtf8(value);
}

bool agrees(const QJsonValue &json, const QString &value)
{
    return agrees(json, value.toUtf8());
}

bool agrees(const QJsonValue &json, bool value)
{
    return json.isBool() && json.toBool() == value;
}

bool agrees(const QJsonValue &json, double value)
{
    return json.isDouble() && json.toDouble() == value;
}

bool agrees(const QJsonValue &json, std::int64_t value)
{
    return json.isDouble() && json.toInteger() == value;
}

bool agrees(const QJsonValue &json, const QDateTime &value)
{
    return json.isString() && json.toString() == value.toString(Qt::ISODate);
}

template<RawEnum E>
bool agrees(const QJsonValue &json, E value)
{
    return agrees(json, rawValue(value));
}

template<Record T>
bool agrees(const QJsonValue &json, const T &record);

template<Optional T>
bool agrees(const QJsonValue &json, const T &value)
{
    return value ? agrees(json, *value) : json.isUndefined();
}

template<class T>
bool agrees(const QJsonValue &json, const QList<T> &values)
{
    const QJsonArray array = json.toArray();
    bool all = json.isArray() && array.size() == values.size();
    for (qsizetype i = 0; all && i < values.size(); ++i)
        all = agrees(array.at(i), values.at(i));
    return all;
}

template<Record T>
bool agrees(const QJsonValue &json, const T &record)
{
    QJsonObject object = json.toObject();
    bool all = json.isObject();
    forEachField<T>([&](const auto &f) {
        const QString key = QString::fromUtf8(f.name.data(), qsizetype(f.name.size()));
        all = all && agrees(object.value(key), record.*f.member);
        object.remove(key);
    });
    return all && object.isEmpty();
}

/// The first key that stands after a greater one of its object; empty if there is none. Relies on
/// the layout of our writer: one key a line, indented by its depth.
QByteArray firstKeyOutOfOrder(const QByteArray &json)
{
    QHash<qsizetype, QByteArray> lastKeys;
    for (const QByteArray &line : json.split('\n')) {
        const qsizetype indentation = line.indexOf('"');
        const QByteArray text = line.trimmed();
        if (text.startsWith('"')) {
            const QByteArray key = text.mid(1, text.indexOf('"', 1) - 1);
            if (lastKeys.value(indentation) >= key)
                return key;
            lastKeys[indentation] = key;
        }
        if (text.endsWith('{')) {
            const qsizetype depth = line.size() - line.trimmed().size();
            for (const qsizetype inner : lastKeys.keys()) {
                if (inner > depth)
                    lastKeys.remove(inner);
            }
        }
    }
    return {};
}

/// Sets the locales of Qt and of the C library, and puts both back.
class ForeignLocale
{
public:
    ForeignLocale(const QLocale &locale, const char *name)
        : m_systemName(std::setlocale(LC_ALL, nullptr))
    {
        QLocale::setDefault(locale);
        std::setlocale(LC_ALL, name); // leaves it as it is where the machine has no such locale
    }
    ~ForeignLocale()
    {
        QLocale::setDefault(m_locale);
        std::setlocale(LC_ALL, m_systemName.constData());
    }
    Q_DISABLE_COPY_MOVE(ForeignLocale)

private:
    QLocale m_locale;
    QByteArray m_systemName;
};

} // namespace

class TestRandomDocuments : public QObject
{
    Q_OBJECT

private slots:
    void theGeneratorReachesWhatIsHardToWrite()
    {
        QByteArray all;
        for (unsigned seed = 1; seed <= 50; ++seed)
            all += encoded(randomProject(seed));
        for (const char *piece :
             {"\\u0000", "\\u001B", "\xf0\x9f\x8e\xb5", "e+308", "5e-324", "-9223372036854775808",
              "0.30000000000000004", "\"slides\": []"}) {
            QVERIFY2(all.contains(piece), piece);
        }
    }

    void aWrittenProjectReadsBackTheSame_data() { addSeeds(); }

    void aWrittenProjectReadsBackTheSame()
    {
        QFETCH(unsigned, seed);
        const ZelvoProject project = randomProject(seed);
        const QByteArray bytes = encoded(project);
        const auto read = currentProject(bytes);
        QVERIFY(read);
        QCOMPARE(*read, withoutHalfPairs(project));
        QCOMPARE(encoded(project), bytes);
        QCOMPARE(encoded(*read), bytes);
    }

    void keysAreSortedInEveryObject_data() { addSeeds(); }

    void keysAreSortedInEveryObject()
    {
        QFETCH(unsigned, seed);
        QCOMPARE(firstKeyOutOfOrder(encoded(randomProject(seed))), QByteArray());
    }

    void anotherReaderOfJsonSeesTheSame_data() { addSeeds(); }

    void anotherReaderOfJsonSeesTheSame()
    {
        QFETCH(unsigned, seed);
        const ZelvoProject project = withoutHalfPairs(randomProject(seed));
        QJsonParseError error{};
        const QJsonDocument document = QJsonDocument::fromJson(encoded(project), &error);
        QCOMPARE(error.errorString(), QJsonParseError().errorString());
        QVERIFY(agrees(document.object(), project));
    }

    void theLocaleOfTheMachineChangesNothing()
    {
        for (unsigned seed = 1; seed <= 20; ++seed) {
            const ZelvoProject project = randomProject(seed);
            const QByteArray bytes = encoded(project);
            for (const auto &[locale, name] :
                 {std::pair(QLocale(QLocale::German, QLocale::Germany), "de_DE.UTF-8"),
                  std::pair(QLocale(QLocale::Arabic, QLocale::Egypt), "ar_EG.UTF-8"),
                  std::pair(QLocale(QLocale::Thai, QLocale::Thailand), "th_TH.UTF-8")}) {
                const ForeignLocale abroad(locale, name);
                QCOMPARE(encoded(project), bytes);
                QCOMPARE(currentProject(bytes), withoutHalfPairs(project));
            }
        }
    }

    void normalizingTwiceChangesNothing_data() { addSeeds(); }

    void normalizingTwiceChangesNothing()
    {
        QFETCH(unsigned, seed);
        const ZelvoProject once = ProjectNormalizer::normalized(randomProject(seed));
        QCOMPARE(ProjectNormalizer::normalized(once), once);
    }

    void aSavedProjectLoadsAsItWasNormalizedForSaving_data() { addSeeds(); }

    void aSavedProjectLoadsAsItWasNormalizedForSaving()
    {
        QFETCH(unsigned, seed);
        const QTemporaryDir folder;
        const QUrl url = QUrl::fromLocalFile(folder.filePath(u"random.quenara"_s));
        const ZelvoProject project = withoutHalfPairs(randomProject(seed));
        ProjectFileService::save(project, url, someTime());
        const ZelvoProject loaded = ProjectFileService::load(url, someTime().addDays(1));
        // Designs that the normalizer supplies have identifiers of their own each time.
        QCOMPARE(withoutIdentifiers(loaded),
                 withoutIdentifiers(ProjectNormalizer::normalizedForSave(project, someTime())));

        ProjectFileService::save(loaded, url, someTime().addDays(2));
        ZelvoProject expected = loaded;
        expected.updatedAt = someTime().addDays(2);
        QCOMPARE(ProjectFileService::load(url, someTime()), expected);
    }
};

QUENARA_TEST(TestRandomDocuments)

} // namespace tst_random_documents

#include "tst_random_documents.moc"
