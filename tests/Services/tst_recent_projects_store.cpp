#include "JsonDates.h"
#include "RecentProjectsStore.h"
#include "TestMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

using namespace quenara;
using namespace Qt::StringLiterals;

namespace tst_recent_projects_store {

namespace {

const QString key = u"QuenaraRecentProjects"_s;
const QDateTime start = QDateTime(QDate(2026, 3, 1), QTime(9, 30), QTimeZone::utc()).toUTC();

QUrl fileUrl(const QString &path)
{
    return QUrl::fromLocalFile(path);
}

QStringList namesOf(const QList<RecentProject> &projects)
{
    QStringList names;
    for (const RecentProject &project : projects)
        names.append(project.name);
    return names;
}

} // namespace

class TestRecentProjectsStore : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_preferences.clear(); }

    void withoutAStoredValueTheListIsEmpty()
    {
        QVERIFY(RecentProjectsStore::load(m_preferences).isEmpty());
    }

    void ofALongNameTheBeginningIsKept()
    {
        const QString name = u"name"_s.repeated(60'000);
        const auto added = RecentProjectsStore::add(m_preferences, fileUrl(u"/a"_s), name, start);
        QCOMPARE(added.constFirst().name,
                 name.first(RecentProjectsStore::longestName - 1) + u'\u2026');
        QCOMPARE(RecentProjectsStore::load(m_preferences), added);
        const QString longest = name.first(RecentProjectsStore::longestName);
        QCOMPARE(RecentProjectsStore::add(m_preferences, fileUrl(u"/b"_s), longest, start)
                     .constFirst()
                     .name,
                 longest);
    }

    void whatDoesNotDecodeIsAnEmptyListAndStays_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::newRow("no JSON") << QVariant(u"no JSON"_s);
        QTest::newRow("an object") << QVariant(u"{}"_s);
        QTest::newRow("an entry without a path")
            << QVariant(u"[{\"name\":\"A\",\"lastOpened\":1}]"_s);
        QTest::newRow("a date as text") << QVariant(
            u"[{\"name\":\"A\",\"path\":\"/a\",\"lastOpened\":\"2026-03-01T09:30:00Z\"}]"_s);
        QTest::newRow("one foreign entry among others")
            << QVariant(u"[{\"name\":\"A\",\"path\":\"/a\",\"lastOpened\":1},7]"_s);
        QTest::newRow("a number") << QVariant(7);
        QTest::newRow("a list of texts") << QVariant(QStringList{u"/a"_s, u"/b"_s});
    }

    void whatDoesNotDecodeIsAnEmptyListAndStays()
    {
        QFETCH(QVariant, stored);
        m_preferences.setValue(key, stored);
        QVERIFY(RecentProjectsStore::load(m_preferences).isEmpty());
        QCOMPARE(m_preferences.value(key), stored);
        const auto added = RecentProjectsStore::add(m_preferences, fileUrl(u"/b"_s), u"B"_s, start);
        QCOMPARE(namesOf(added), QStringList{u"B"_s});
        QCOMPARE(RecentProjectsStore::load(m_preferences), added);
    }

    void aStoredListIsReturnedNewestFirstAndRewrittenOnlyByTheNextAdd()
    {
        const QString stored = u"[{\"name\":\"Old\",\"path\":\"/o\",\"lastOpened\":1.5},"
                               u"{\"name\":\"New\",\"path\":\"/n\",\"lastOpened\":9},"
                               u"{\"name\":\"Equal\",\"path\":\"/e\",\"lastOpened\":1.5}]"_s;
        m_preferences.setValue(key, stored);
        const QList<RecentProject> loaded = RecentProjectsStore::load(m_preferences);
        QCOMPARE(namesOf(loaded), (QStringList{u"New"_s, u"Old"_s, u"Equal"_s}));
        QCOMPARE(loaded.at(1).path, u"/o"_s);
        QCOMPARE(loaded.at(1).lastOpened, 1.5);
        QCOMPARE(m_preferences.value(key).toString(), stored);

        RecentProjectsStore::add(m_preferences, fileUrl(u"/x"_s), u"Added"_s, start);
        const auto rewritten =
            QJsonDocument::fromJson(m_preferences.value(key).toString().toUtf8()).array();
        QStringList names;
        for (const auto entry : rewritten)
            names.append(entry[u"name"_s].toString());
        QCOMPARE(names, (QStringList{u"Added"_s, u"New"_s, u"Old"_s, u"Equal"_s}));
    }

    void timesCountToTheLastFractionOfASecondAndKeepIt()
    {
        m_preferences.setValue(
            key,
            u"[{\"name\":\"Old\",\"path\":\"/o\",\"lastOpened\":794123456.1234561},"
            u"{\"name\":\"New\",\"path\":\"/n\",\"lastOpened\":794123456.1234564}]"_s);
        QCOMPARE(namesOf(RecentProjectsStore::load(m_preferences)),
                 (QStringList{u"New"_s, u"Old"_s}));
        RecentProjectsStore::add(m_preferences, fileUrl(u"/x"_s), u"Added"_s, start);
        for (const char *time : {"794123456.1234561", "794123456.1234564"})
            QVERIFY(m_preferences.value(key).toString().contains(QLatin1String(time)));
    }

    void theListIsStoredCompactWithSecondsSince2001()
    {
        const QDateTime now =
            QDateTime(QDate(2001, 1, 2), QTime(0, 0, 0, 500), QTimeZone::utc()).toUTC();
        RecentProjectsStore::add(m_preferences, fileUrl(u"/a, b/\u00fc\".quenara"_s), u"Name"_s,
                                 now);
        const QString expected =
            u"[{\"name\":\"Name\",\"path\":\"/a, b/ü\\\".quenara\",\"lastOpened\":86400.5}]"_s;
        QCOMPARE(m_preferences.value(key).toString(), expected);

        m_preferences.sync();
        const QSettings fresh(m_preferences.fileName(), QSettings::IniFormat);
        QCOMPARE(fresh.value(key).toString(), expected);
    }

    void anotherProgramReadsTheNewListAtOnce()
    {
        RecentProjectsStore::add(m_preferences, fileUrl(u"/a"_s), u"Name"_s, start);
        // Preferences of one process that share a file share what is not written yet, too.
        const QString copy = m_preferences.fileName() + u".copy"_s;
        QVERIFY(QFile::copy(m_preferences.fileName(), copy));
        const QSettings others(copy, QSettings::IniFormat);
        QCOMPARE(namesOf(RecentProjectsStore::load(others)), QStringList{u"Name"_s});
    }

    void addingThePathAgainLeavesOneEntryInFrontWithTheNewerNameAndTime()
    {
        RecentProjectsStore::add(m_preferences, fileUrl(u"/a"_s), u"Before"_s, start);
        RecentProjectsStore::add(m_preferences, fileUrl(u"/b"_s), u"Other"_s, start.addSecs(1));
        const auto list =
            RecentProjectsStore::add(m_preferences, fileUrl(u"/a"_s), u"After"_s, start.addSecs(2));
        QCOMPARE(namesOf(list), (QStringList{u"After"_s, u"Other"_s}));
        QCOMPARE(list.first(),
                 (RecentProject{u"After"_s, u"/a"_s, json::referenceSeconds(start.addSecs(2))}));
        QCOMPARE(RecentProjectsStore::load(m_preferences), list);
    }

    void pathsAreComparedLetterByLetter()
    {
        RecentProjectsStore::add(m_preferences, fileUrl(u"/Sunday"_s), u"1"_s, start);
        RecentProjectsStore::add(m_preferences, fileUrl(u"/sunday"_s), u"2"_s, start.addSecs(1));
        const auto list = RecentProjectsStore::add(m_preferences, fileUrl(u"/x/../Sunday"_s),
                                                   u"3"_s, start.addSecs(2));
        QCOMPARE(namesOf(list), (QStringList{u"3"_s, u"2"_s, u"1"_s}));
    }

    void theEleventhPathDropsTheOldest()
    {
        QStringList expected;
        QList<RecentProject> list;
        for (int i = 1; i <= 11; ++i) {
            const QString name = QString::number(i);
            list = RecentProjectsStore::add(m_preferences, fileUrl(u'/' + name), name,
                                            start.addSecs(i));
            expected.prepend(name);
        }
        expected.removeLast();
        QCOMPARE(namesOf(list), expected);
        QCOMPARE(RecentProjectsStore::load(m_preferences), list);
    }

    void anEntryAddedUnderASlowClockStaysInFrontUntilTheListIsLoaded()
    {
        RecentProjectsStore::add(m_preferences, fileUrl(u"/a"_s), u"A"_s, start);
        const auto list =
            RecentProjectsStore::add(m_preferences, fileUrl(u"/b"_s), u"B"_s, start.addDays(-1));
        QCOMPARE(namesOf(list), (QStringList{u"B"_s, u"A"_s}));
        QCOMPARE(namesOf(RecentProjectsStore::load(m_preferences)), (QStringList{u"A"_s, u"B"_s}));
    }

private:
    QTemporaryDir m_folder;
    QSettings m_preferences{m_folder.filePath(u"preferences.ini"_s), QSettings::IniFormat};
};

QUENARA_TEST(TestRecentProjectsStore)

} // namespace tst_recent_projects_store

#include "tst_recent_projects_store.moc"
