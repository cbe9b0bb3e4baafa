#include "Documents.h"
#include "ProjectFileError.h"
#include "ProjectFileService.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_opened_documents {

namespace {

// Each document stands beside what it is once opened. There, "*" is any fresh identifier, the time
// "now" that of opening; where a document cannot be opened, "fails" is what the operator is told.
const QString folder = u"documents/"_s;
const QString expectedSuffix = u".expected.json"_s;

QJsonObject treeOf(const QByteArray &bytes)
{
    return QJsonDocument::fromJson(bytes).object();
}

QString internetText(const QDateTime &date)
{
    return date.toString(Qt::ISODate);
}

bool isFreshIdentifier(const QString &text)
{
    static const QRegularExpression form(u"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"_s);
    return form.match(text).hasMatch();
}

/// Where \a actual differs from \a expected, and how; nothing where it does not.
QStringList differences(const QJsonValue &actual, const QJsonValue &expected,
                        const QString &path = u"document"_s)
{
    if (expected.isObject() && actual.isObject()) {
        QStringList all;
        QStringList keys = expected.toObject().keys() + actual.toObject().keys();
        keys.removeDuplicates();
        for (const QString &key : keys)
            all += differences(actual[key], expected[key], path + u'.' + key);
        return all;
    }
    if (expected.isArray() && actual.isArray()) {
        QStringList all;
        const qsizetype size = std::max(expected.toArray().size(), actual.toArray().size());
        for (qsizetype i = 0; i < size; ++i)
            all += differences(actual[i], expected[i], u"%1[%2]"_s.arg(path).arg(i));
        return all;
    }
    const bool isFresh = expected == u"*"_s && path.endsWith(u".id"_s);
    const bool isNow = expected == u"now"_s && path.endsWith(u".updatedAt"_s);
    const bool agrees = isFresh ? isFreshIdentifier(actual.toString())
        : isNow                 ? actual == internetText(someTime())
                                : actual == expected;
    if (agrees)
        return {};
    return {u"%1: %2 for %3"_s.arg(path, actual.toVariant().toString(),
                                   expected.toVariant().toString())};
}

QString pathOf(const QString &expectedFile)
{
    const QString name = expectedFile.chopped(expectedSuffix.size());
    for (const QString &extension : {u".quenara"_s, u".json"_s}) {
        if (QFile::exists(dataPath(folder + name + extension)))
            return dataPath(folder + name + extension);
    }
    return {};
}

void addDocuments(bool thatOpen)
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QJsonObject>("expected");
    const QStringList files = QDir(dataPath(folder)).entryList({u'*' + expectedSuffix});
    for (const QString &file : files) {
        const QJsonObject expected = treeOf(dataBytes(folder + file));
        if (expected.contains(u"fails"_s) != thatOpen)
            QTest::newRow(qPrintable(file)) << pathOf(file) << expected;
    }
}

ZelvoProject opened(const QString &path)
{
    return ProjectFileService::load(QUrl::fromLocalFile(path), someTime());
}

} // namespace

class TestOpenedDocuments : public QObject
{
    Q_OBJECT

private slots:
    void everyDocumentHasWhatIsExpectedOfIt()
    {
        const QStringList files = QDir(dataPath(folder)).entryList(QDir::Files);
        const QStringList expected = files.filter(expectedSuffix);
        QVERIFY(expected.size() >= 14);
        QCOMPARE(files.size(), 2 * expected.size());
        for (const QString &file : expected)
            QVERIFY2(!pathOf(file).isEmpty(), qPrintable(file));
    }

    void aDocumentOpensAsExpected_data() { addDocuments(true); }

    void aDocumentOpensAsExpected()
    {
        QFETCH(QString, path);
        QFETCH(QJsonObject, expected);
        QVERIFY(!expected.isEmpty());
        QCOMPARE(differences(treeOf(encoded(opened(path))), expected), QStringList());
    }

    void aDocumentThatDoesNotOpenSaysWhy_data() { addDocuments(false); }

    void aDocumentThatDoesNotOpenSaysWhy()
    {
        QFETCH(QString, path);
        QFETCH(QJsonObject, expected);
        QString message;
        try {
            opened(path);
        } catch (const ProjectFileError &error) {
            message = error.description();
        }
        QCOMPARE(message, expected[u"fails"_s].toString());
    }

    void savingADocumentAgainChangesNothingButItsTime_data() { addDocuments(true); }

    void savingADocumentAgainChangesNothingButItsTime()
    {
        QFETCH(QString, path);
        const QTemporaryDir place;
        const QString saved = place.filePath(u"saved.quenara"_s);
        const auto bytesSavedAt = [&saved](const ZelvoProject &project, const QDateTime &time) {
            ProjectFileService::save(project, QUrl::fromLocalFile(saved), time);
            QFile file(saved);
            return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        };
        const QDateTime later = someTime().addDays(1);
        const QByteArray first = bytesSavedAt(opened(path), someTime());
        const QByteArray second = bytesSavedAt(opened(saved), later);
        QVERIFY(!first.isEmpty() && first != second);
        QCOMPARE(second,
                 replaced(first, '"' + internetText(someTime()).toUtf8() + '"',
                          '"' + internetText(later).toUtf8() + '"'));
    }
};

QUENARA_TEST(TestOpenedDocuments)

} // namespace tst_opened_documents

#include "tst_opened_documents.moc"
