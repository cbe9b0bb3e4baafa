#include "ChildProcess.h"
#include "Files.h"
#include "JournalFile.h"
#include "SessionJournal.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_journal_file {

namespace {

Session sessionNamed(const QString &name)
{
    Session session;
    session.projectName = name;
    session.hasUnsavedChanges = true;
    session.project = showOf({1});
    return session;
}

QByteArrayList piecesOf(const Session &session)
{
    return SessionJournal().add(session);
}

/// Is called once, by the next lock that is asked for, before that is.
std::function<void()> beforeTheNextLock;

/// Why the file system refuses locks of whole files, and of ranges; 0 where it has them.
struct Refusals
{
    int ofFiles = 0;
    int ofRanges = 0;
};
Refusals refusals;

/// Keeps the system from having locks while it lives.
struct WithoutLocks
{
    explicit WithoutLocks(const Refusals &reasons) { refusals = reasons; }
    ~WithoutLocks() { refusals = {}; }
    Q_DISABLE_COPY_MOVE(WithoutLocks)
};

} // namespace

// These stand in the place of the C library's.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): its names are not ours to use
extern "C" int flock(int file, int operation) noexcept
{
    if (const auto happens = std::exchange(beforeTheNextLock, nullptr))
        happens();
    errno = refusals.ofFiles;
    return refusals.ofFiles != 0 ? -1 : int(::syscall(SYS_flock, file, operation));
}

extern "C" int fcntl(int file, int command, ...)
{
    std::va_list arguments;
    va_start(arguments, command);
    void *argument = va_arg(arguments, void *);
    va_end(arguments);
    const bool isRefused = command == F_OFD_SETLK && refusals.ofRanges != 0;
    errno = isRefused ? refusals.ofRanges : errno;
    return isRefused ? -1 : int(::syscall(SYS_fcntl, file, command, argument));
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name)

class TestJournalFile : public QObject
{
    Q_OBJECT

    /// The folder of journals, which is not there before the first.
    struct Journals
    {
        QTemporaryDir base;
        QString folder = base.filePath(u"state/recovery"_s);

        QStringList files() const
        {
            return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
        }
        QString onlyFile() const { return folder + u'/' + files().value(0); }

        /// The work of a process that ends without a word.
        void leaveBehind(const QString &name, int secondsAgo = 0) const
        {
            JournalFile file(folder);
            QVERIFY(file.begin(piecesOf(sessionNamed(name)), false));
            file.close();
            // The newest file is the one whose time is not set yet.
            const QFileInfoList byTime = QDir(folder).entryInfoList(QDir::Files, QDir::Time);
            QFile opened(byTime.first().filePath());
            QVERIFY(opened.open(QIODevice::ReadWrite));
            QVERIFY(opened.setFileTime(QDateTime::currentDateTime().addSecs(-secondsAgo - 5),
                                       QFileDevice::FileModificationTime));
        }

        QStringList names(qint64 mostBytes = mostLeftOverBytes) const
        {
            QStringList names;
            for (const LeftOverJournal &journal : leftOverJournals(folder, mostBytes))
                names.append(journal.session.projectName);
            return names;
        }
    };

    static void addFileSystems()
    {
        QTest::addColumn<int>("refusal");
        QTest::newRow("with locks of whole files") << 0;
        QTest::newRow("over a network without a service of locks") << ENOLCK;
        QTest::newRow("with no such operation") << EOPNOTSUPP;
        QTest::newRow("of a program that has no such function") << ENOSYS;
    }

private slots:
    void whatAProcessLeavesIsListedNewestFirst()
    {
        const Journals journals;
        QCOMPARE(journals.names(), QStringList());
        journals.leaveBehind(u"Middle"_s, 200);
        journals.leaveBehind(u"Newest"_s, 10);
        journals.leaveBehind(u"Oldest"_s, 3000);
        QCOMPARE(journals.names(), (QStringList{u"Newest"_s, u"Middle"_s, u"Oldest"_s}));
        // Looking at them changes nothing.
        QCOMPARE(journals.names(), (QStringList{u"Newest"_s, u"Middle"_s, u"Oldest"_s}));
    }

    void ofManyLargeOnesTheNewestAreReadAndTheOthersKept()
    {
        const Journals journals;
        journals.leaveBehind(u"Newest"_s);
        const qint64 size = QFileInfo(journals.onlyFile()).size();
        journals.leaveBehind(u"Middle"_s, 200);
        journals.leaveBehind(u"Oldest"_s, 3000);
        QCOMPARE(leftOverJournals(journals.folder, 0).size(), 1);
        QCOMPARE(leftOverJournals(journals.folder, size).size(), 1);
        QCOMPARE(leftOverJournals(journals.folder, 2 * size).size(), 2);
        QCOMPARE(leftOverJournals(journals.folder, 0).first().session.projectName, u"Newest"_s);
        QCOMPARE(journals.names().size(), 3);
    }

    void whatIsNotReadTakesNoneOfTheRoom_data()
    {
        QTest::addColumn<QByteArray>("beginning");
        QTest::newRow("a file of another kind") << QByteArray("notes");
        QTest::newRow("a journal with nothing to bring back")
            << QByteArray("Quenara recovery journal 1\nabc");
    }

    void whatIsNotReadTakesNoneOfTheRoom()
    {
        QFETCH(QByteArray, beginning);
        const Journals journals;
        journals.leaveBehind(u"Middle"_s, 200);
        const qint64 size = QFileInfo(journals.onlyFile()).size();
        journals.leaveBehind(u"Oldest"_s, 3000);
        const QStringList both{u"Middle"_s, u"Oldest"_s};
        writeFile(journals.folder + u"/newest.journal"_s, beginning + QByteArray(4 * size, ' '));
        QCOMPARE(journals.names(2 * size), both);

        writeFile(journals.folder + u"/between.journal"_s, beginning + QByteArray(4 * size, ' '));
        QFile between(journals.folder + u"/between.journal"_s);
        QVERIFY(between.open(QIODevice::ReadWrite));
        QVERIFY(between.setFileTime(QDateTime::currentDateTime().addSecs(-1000),
                                    QFileDevice::FileModificationTime));
        between.close();
        QCOMPARE(journals.names(2 * size), both);
    }

    void aJournalThatIsOpenIsNotLeftOver_data() { addFileSystems(); }

    void aJournalThatIsOpenIsNotLeftOver()
    {
        QFETCH(int, refusal);
        const WithoutLocks fileSystem({.ofFiles = refusal});
        const Journals journals;
        {
            JournalFile file(journals.folder);
            QVERIFY(file.begin(piecesOf(sessionNamed(u"Running"_s)), false));
            QCOMPARE(journals.names(), QStringList());
            // Beginning anew, too, is never seen without its lock.
            QVERIFY(file.begin(piecesOf(sessionNamed(u"Running on"_s)), true));
            QCOMPARE(journals.names(), QStringList());
            QCOMPARE(journals.files().size(), 1);
        }
        QCOMPARE(journals.names(), QStringList{u"Running on"_s});
    }

    void aJournalThatIsBegunAnewWhileItIsLookedAtIsNotLeftOver()
    {
        const Journals journals;
        JournalFile file(journals.folder);
        QVERIFY(file.begin(piecesOf(sessionNamed(u"Running"_s)), false));
        // The file that was opened has lost its name by then, and its lock.
        beforeTheNextLock = [&file] {
            QVERIFY(file.begin(piecesOf(sessionNamed(u"Running on"_s)), false));
        };
        QCOMPARE(journals.names(), QStringList());
        QVERIFY(!beforeTheNextLock);
        QVERIFY(file.isInPlace());
        file.close();
        QCOMPARE(journals.names(), QStringList{u"Running on"_s});
    }

    void theLockDiesWithItsProcess_data() { addFileSystems(); }

    void theLockDiesWithItsProcess()
    {
        QFETCH(int, refusal);
        const WithoutLocks fileSystem({.ofFiles = refusal});
        const Journals journals;
        const int status = statusOfProcess([&] {
            JournalFile file(journals.folder);
            const bool isBegun = file.begin(piecesOf(sessionNamed(u"Killed"_s)), false);
            if (isBegun && journals.names().isEmpty())
                ::kill(::getpid(), SIGKILL);
            return 0;
        });
        QCOMPARE(status, -1);
        QCOMPARE(journals.names(), QStringList{u"Killed"_s});
    }

    void oneThatIsBeingOfferedIsNotOfferedTwice()
    {
        const Journals journals;
        journals.leaveBehind(u"Work"_s);
        const QList<LeftOverJournal> offered = leftOverJournals(journals.folder);
        QCOMPARE(offered.size(), 1);
        QCOMPARE(journals.names(), QStringList());
    }

    void aRemovedOneIsGone()
    {
        const Journals journals;
        journals.leaveBehind(u"Work"_s);
        leftOverJournals(journals.folder).first().remove();
        QCOMPARE(journals.files(), QStringList());

        JournalFile file(journals.folder);
        QVERIFY(file.begin(piecesOf(sessionNamed(u"Work"_s)), false));
        file.remove();
        QVERIFY(!file.isOpen());
        QCOMPARE(journals.files(), QStringList());
    }

    void entriesAreAdded()
    {
        const Journals journals;
        SessionJournal journal;
        JournalFile file(journals.folder);
        QVERIFY(file.begin(journal.add(sessionNamed(u"First"_s)), false));
        const qint64 size = file.size();
        QVERIFY(file.append(journal.add(sessionNamed(u"Second"_s))));
        QVERIFY(file.size() > size);
        QVERIFY(file.synchronize());
        file.close();
        QCOMPARE(journals.names(), QStringList{u"Second"_s});
    }

    void onlyItsUserCanReadIt()
    {
        const mode_t before = ::umask(0);
        const Journals journals;
        JournalFile file(journals.folder);
        QVERIFY(QDir().mkpath(journals.folder));
        QVERIFY(file.begin(piecesOf(sessionNamed(u"Private"_s)), false));
        ::umask(before);
        const auto modeOf = [](const QString &path) {
            struct stat attributes
            {};
            return ::stat(QFile::encodeName(path).constData(), &attributes) == 0
                ? attributes.st_mode & 07777U
                : 0U;
        };
        QCOMPARE(modeOf(journals.folder), 0700U);
        QCOMPARE(modeOf(journals.onlyFile()), 0600U);
    }

    void filesThatAreNoJournalsAreLeftAlone()
    {
        const Journals journals;
        journals.leaveBehind(u"Work"_s);
        const QStringList others{u"notes.txt"_s, u"other.journal"_s, u"newer.journal"_s};
        writeFile(journals.folder + u"/notes.txt"_s, "notes");
        writeFile(journals.folder + u"/other.journal"_s, "{}");
        writeFile(journals.folder + u"/newer.journal"_s, "Quenara recovery journal 2\nmore");
        QVERIFY(QFile::link(u"/dev/zero"_s, journals.folder + u"/link.journal"_s));
        QCOMPARE(
            ::mkfifo(QFile::encodeName(journals.folder + u"/fifo.journal"_s).constData(), 0600), 0);
        QCOMPARE(journals.names(), QStringList{u"Work"_s});
        for (const QString &other : others)
            QVERIFY2(QFile::exists(journals.folder + u'/' + other), qPrintable(other));
    }

    void aJournalWithNothingToBringBackIsTakenAway()
    {
        const Journals journals;
        QVERIFY(QDir().mkpath(journals.folder));
        writeFile(journals.folder + u"/empty.journal"_s, "");
        writeFile(journals.folder + u"/begun.journal"_s, "Quenara recovery journal 1\nabc");
        QCOMPARE(journals.names(), QStringList());
        QCOMPARE(journals.files(), QStringList());
    }

    void whatWasBegunAndNeverFinishedIsTakenAwayOnceItIsOld()
    {
        const Journals journals;
        QVERIFY(QDir().mkpath(journals.folder));
        const QString young = journals.folder + u"/young.journal.new"_s;
        const QString old = journals.folder + u"/old.journal.new"_s;
        writeFile(young, "Quenara");
        writeFile(old, "Quenara");
        QFile file(old);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(-600),
                                 QFileDevice::FileModificationTime));
        // However slow its disk is, a process that still writes has the lock.
        QCOMPARE(::flock(file.handle(), LOCK_EX), 0);
        QCOMPARE(journals.names(), QStringList());
        QCOMPARE(journals.files().size(), 2);
        file.close();
        QCOMPARE(journals.names(), QStringList());
        QCOMPARE(journals.files(), QStringList{u"young.journal.new"_s});
    }

    void theDocumentOfARunningProgramIsKnownByEachOfItsPaths_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("isKnown");
        QTest::newRow("its own path") << u"shows/Sunday.quenara"_s << true;
        QTest::newRow("from another folder") << u"other/../shows/Sunday.quenara"_s << true;
        QTest::newRow("a symbolic link to it") << u"other/Link.quenara"_s << true;
        QTest::newRow("a symbolic link to its folder") << u"other/folder/Sunday.quenara"_s << true;
        QTest::newRow("a hard link") << u"other/Name.quenara"_s << true;
        QTest::newRow("another file") << u"other/Other.quenara"_s << false;
        QTest::newRow("a copy") << u"other/Sunday.quenara"_s << false;
        QTest::newRow("a file that is not there") << u"shows/Monday.quenara"_s << false;
        QTest::newRow("a symbolic link that leads in a circle") << u"other/circle"_s << false;
    }

    void theDocumentOfARunningProgramIsKnownByEachOfItsPaths()
    {
        QFETCH(QString, path);
        QFETCH(bool, isKnown);
        const Journals journals;
        const auto at = [&](const QString &name) { return journals.base.filePath(name); };
        QVERIFY(QDir().mkpath(at(u"shows"_s)) && QDir().mkpath(at(u"other"_s)));
        const QString shown = at(u"shows/Sunday.quenara"_s);
        for (const QString &file :
             {shown, at(u"other/Sunday.quenara"_s), at(u"other/Other.quenara"_s)})
            writeFile(file, "{}");
        QVERIFY(QFile::link(shown, at(u"other/Link.quenara"_s)));
        QVERIFY(QFile::link(at(u"shows"_s), at(u"other/folder"_s)));
        QVERIFY(QFile::link(at(u"other/circle"_s), at(u"other/circle"_s)));
        QCOMPARE(::link(QFile::encodeName(shown).constData(),
                        QFile::encodeName(at(u"other/Name.quenara"_s)).constData()),
                 0);
        Session session = sessionNamed(u"Sunday"_s);
        session.file = shown;
        JournalFile running(journals.folder);
        QVERIFY(running.begin(piecesOf(session), false));
        const QUrl url = QUrl::fromLocalFile(at(path));
        QCOMPARE(isOpenElsewhere(url, journals.folder, {}), isKnown);
        QVERIFY(!isOpenElsewhere(url, journals.folder, {running.path()}));
        // Once the program has ended, it has nothing open.
        running.close();
        QVERIFY(!isOpenElsewhere(url, journals.folder, {}));
    }

    void theDocumentThatARunningProgramHasNowCounts_data() { addFileSystems(); }

    void theDocumentThatARunningProgramHasNowCounts()
    {
        QFETCH(int, refusal);
        const WithoutLocks fileSystem({.ofFiles = refusal});
        const Journals journals;
        const auto isOpen = [&](const QString &name) {
            return isOpenElsewhere(QUrl::fromLocalFile(journals.base.filePath(name)),
                                   journals.folder, {});
        };
        Session session = sessionNamed(u"Sunday"_s);
        SessionJournal journal;
        JournalFile running(journals.folder);
        QVERIFY(running.begin(journal.add(session), false));
        for (const QString &name : {u"First"_s, u"Second"_s}) {
            writeFile(journals.base.filePath(name), "{}");
            session.file = journals.base.filePath(name);
            QVERIFY(running.append(journal.add(session)));
            QVERIFY(isOpen(name));
        }
        QVERIFY(!isOpen(u"First"_s));
        // What is only half written yet says nothing.
        session.file = journals.base.filePath(u"First"_s);
        QVERIFY(running.append({journal.add(session).join().chopped(1)}));
        QVERIFY(isOpen(u"Second"_s));
    }

    void aFailureLeavesWhatIsWhole()
    {
        const Journals journals;
        const int status = statusOfProcess([&] {
            ::signal(SIGXFSZ, SIG_IGN);
            SessionJournal journal;
            JournalFile file(journals.folder);
            if (!file.begin(journal.add(sessionNamed(u"Whole"_s)), false))
                return 1;
            const rlimit limit{rlim_t(file.size()) + 50, rlim_t(file.size()) + 50};
            if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
                return 2;
            const QString longName(1000, u'x');
            return file.append(journal.add(sessionNamed(longName))) ? 3 : 0;
        });
        QCOMPARE(status, 0);
        QCOMPARE(journals.names(), QStringList{u"Whole"_s});
    }

    void whereNothingCanBeLockedNothingBeginsAndNothingIsTaken()
    {
        const Journals journals;
        journals.leaveBehind(u"Work"_s);
        {
            const WithoutLocks fileSystem({.ofFiles = ENOLCK, .ofRanges = ENOLCK});
            QCOMPARE(journals.names(), QStringList());
            JournalFile file(journals.folder);
            QVERIFY(!file.begin(piecesOf(sessionNamed(u"New"_s)), false));
            QVERIFY(!file.isOpen());
            QCOMPARE(journals.files().size(), 1);
        }
        QCOMPARE(journals.names(), QStringList{u"Work"_s});
    }

    void whereNoFolderCanBeNothingBegins()
    {
        const Journals journals;
        writeFile(journals.base.filePath(u"state"_s), "a file");
        JournalFile file(journals.folder);
        QVERIFY(!file.begin(piecesOf(sessionNamed(u"Work"_s)), false));
        QVERIFY(!file.isOpen());
        QVERIFY(!file.append({"x"}));
        QCOMPARE(file.size(), 0);
        QCOMPARE(journals.names(), QStringList());
    }
};

QUENARA_TEST(TestJournalFile)

} // namespace tst_journal_file

#include "tst_journal_file.moc"
