#include "FileReading.h"
#include "FileReplacement.h"
#include "JournalFile.h"
#include "TestMain.h"
#include "UnnamedFiles.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <fcntl.h>
#include <functional>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_saving_to_disk {

namespace {

const QByteArray oldBytes = "the old file";
const QByteArray newBytes = "the new one";

const QString makingUnnamed = u"make a file without a name"_s;
const QString newFileToDisk = u"bring 11 bytes to the disk"_s;
const QString naming = u"give it a name"_s;
const QString renaming = u"rename it"_s;
const QString folderToDisk = u"bring the folder to the disk"_s;

/// What the system was asked for, and what it shall refuse.
struct System
{
    QStringList calls;
    QString refused;
    int reason = 0;
    QString fatal = {}; ///< the call that stops the process; a signal decides how it goes on
    std::function<void()> onceRenamed = [] {};

    /// Notes \a call; true if it is refused.
    bool refuses(const QString &call)
    {
        calls.append(call);
        if (call == fatal)
            ::raise(SIGSTOP);
        errno = call == refused ? reason : errno;
        return call == refused;
    }
};
System askedSystem;

int opened(const char *path, int flags, mode_t mode)
{
    return (flags & O_TMPFILE) == O_TMPFILE && askedSystem.refuses(makingUnnamed)
        ? -1
        : int(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

int broughtToDisk(int file)
{
    struct stat attributes
    {};
    ::fstat(file, &attributes);
    const QString call = S_ISDIR(attributes.st_mode)
        ? folderToDisk
        : u"bring %1 bytes to the disk"_s.arg(attributes.st_size);
    return askedSystem.refuses(call) ? -1 : int(::syscall(SYS_fsync, file));
}

} // namespace

// These stand in the place of the C library's, for Qt as well.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): its names are not ours to use

extern "C" int open(const char *path, int flags, ...)
{
    std::va_list arguments;
    va_start(arguments, flags);
    const auto mode = va_arg(arguments, mode_t);
    va_end(arguments);
    return opened(path, flags, mode);
}

extern "C" int open64(const char *path, int flags, ...)
{
    std::va_list arguments;
    va_start(arguments, flags);
    const auto mode = va_arg(arguments, mode_t);
    va_end(arguments);
    return opened(path, flags, mode);
}

extern "C" int fsync(int file)
{
    return broughtToDisk(file);
}

extern "C" int fdatasync(int file)
{
    return broughtToDisk(file);
}

extern "C" int rename(const char *from, const char *to) noexcept
{
    if (askedSystem.refuses(renaming))
        return -1;
    const int result = int(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
    askedSystem.onceRenamed();
    return result;
}

extern "C" int linkat(int fromFolder, const char *from, int toFolder, const char *to,
                      int flags) noexcept
{
    return askedSystem.refuses(naming)
        ? -1
        : int(::syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name)

class TestSavingToDisk : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder{folderTemplateWithUnnamedFiles()};
    const QString m_path = m_folder.filePath(u"Sunday.quenara"_s);

    QByteArray contents() const
    {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

    QStringList names() const
    {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    /// The file that a save has not brought to its place; empty if there is none.
    QString leftOver() const
    {
        const QStringList left =
            QDir(m_folder.path()).entryList({u".*"_s}, QDir::Files | QDir::Hidden);
        return left.size() == 1 ? m_folder.filePath(left.constFirst()) : QString();
    }

    /// A process that has stopped while it saves the new bytes, at the call \a stopped.
    pid_t stoppedSave(const QString &refused, const QString &stopped)
    {
        const pid_t process = ::fork();
        if (process == 0) {
            askedSystem = {.calls = {}, .refused = refused, .reason = EOPNOTSUPP, .fatal = stopped};
            ::_exit(replaceFile(m_path, newBytes) ? 0 : 1);
        }
        ::waitpid(process, nullptr, WUNTRACED);
        return process;
    }

private slots:
    void init()
    {
        askedSystem = {};
        QVERIFY(replaceFile(m_path, oldBytes));
        askedSystem.calls.clear();
    }

    void theNewFileIsOnTheDiskBeforeItTakesTheOldOnesPlace_data()
    {
        QTest::addColumn<QString>("refused");
        QTest::newRow("whatever the file system has") << QString();
        QTest::newRow("without files without a name") << makingUnnamed;
    }

    void theNewFileIsOnTheDiskBeforeItTakesTheOldOnesPlace()
    {
        QFETCH(QString, refused);
        askedSystem.refused = refused;
        askedSystem.reason = EOPNOTSUPP;
        QVERIFY(replaceFile(m_path, newBytes));
        const qsizetype toDisk = askedSystem.calls.indexOf(newFileToDisk);
        QVERIFY(toDisk >= 0 && askedSystem.calls.indexOf(renaming) > toDisk);
        QCOMPARE(askedSystem.calls.count(renaming), 1);
        QCOMPARE(contents(), newBytes);
    }

    void theNewNameIsBroughtToTheDiskToo()
    {
        QVERIFY(replaceFile(m_path, newBytes));
        QCOMPARE(askedSystem.calls,
                 (QStringList{makingUnnamed, newFileToDisk, naming, renaming, folderToDisk}));
    }

    void withoutUnnamedFilesTheNewNameIsBroughtToTheDiskToo()
    {
        askedSystem.refused = makingUnnamed;
        askedSystem.reason = EOPNOTSUPP;
        QVERIFY(replaceFile(m_path, newBytes));
        QCOMPARE(askedSystem.calls,
                 (QStringList{makingUnnamed, newFileToDisk, renaming, folderToDisk}));
    }

    void whatAKilledSaveHasLeftTheNextOneRemoves_data()
    {
        QTest::addColumn<QString>("refused");
        QTest::addColumn<QString>("stopped");
        QTest::newRow("a part of a file") << makingUnnamed << newFileToDisk;
        QTest::newRow("a whole file") << makingUnnamed << renaming;
        QTest::newRow("a file that had no name") << QString() << renaming;
    }

    void whatAKilledSaveHasLeftTheNextOneRemoves()
    {
        QFETCH(QString, refused);
        QFETCH(QString, stopped);
        QCOMPARE(::chmod(QFile::encodeName(m_path).constData(), 0600), 0);
        const pid_t process = stoppedSave(refused, stopped);
        const QString left = leftOver();
        QVERIFY(!left.isEmpty());
        QCOMPARE(QFile::permissions(left) & (QFile::ReadGroup | QFile::ReadOther), 0);

        QVERIFY(replaceFile(m_path, oldBytes));
        QCOMPARE(leftOver(), left); // the process may go on
        ::kill(process, SIGKILL);
        ::waitpid(process, nullptr, 0);
        QVERIFY(replaceFile(m_path, oldBytes));
        QCOMPARE(names(), QStringList{u"Sunday.quenara"_s});
        QCOMPARE(contents(), oldBytes);
    }

    void aSaveThatAnotherHasOvertakenIsStillWhole()
    {
        const pid_t process = stoppedSave(makingUnnamed, newFileToDisk);
        QVERIFY(replaceFile(m_path, oldBytes));
        ::kill(process, SIGCONT);
        int status = -1;
        ::waitpid(process, &status, 0);
        QCOMPARE(status, 0);
        QCOMPARE(contents(), newBytes);
        QCOMPARE(names(), QStringList{u"Sunday.quenara"_s});
    }

    void aProgramWithoutStandardInputSavesTheSameWay()
    {
        const int input = ::dup(STDIN_FILENO);
        QVERIFY(input > 0);
        ::close(STDIN_FILENO); // the next file that is opened takes its number
        const bool isReplaced = replaceFile(m_path, newBytes);
        const bool isOneLeftOpen = ::fcntl(STDIN_FILENO, F_GETFD) >= 0;
        QCOMPARE(::dup2(input, STDIN_FILENO), STDIN_FILENO);
        ::close(input);
        QVERIFY(isReplaced);
        QVERIFY(!isOneLeftOpen);
        QCOMPARE(askedSystem.calls,
                 (QStringList{makingUnnamed, newFileToDisk, naming, renaming, folderToDisk}));
        QCOMPARE(contents(), newBytes);
    }

    void aJournalBegunAnewIsOnTheDiskBeforeItTakesTheOldOnesPlace()
    {
        const QTemporaryDir folder;
        JournalFile journal(folder.filePath(u"recovery"_s));
        QVERIFY(journal.begin({oldBytes}, false));
        askedSystem.calls.clear();
        QVERIFY(journal.begin({newBytes}, true));
        QCOMPARE(askedSystem.calls, (QStringList{newFileToDisk, renaming}));
        // What the disk does not take leaves the journal that is there.
        askedSystem = {.calls = {}, .refused = newFileToDisk, .reason = EIO};
        QVERIFY(!journal.begin({newBytes}, true));
        QCOMPARE(askedSystem.calls, QStringList{newFileToDisk});
        QVERIFY(journal.isInPlace());
    }

    void whatAnotherProgramWritesAtOnceIsOfAnotherVersion_data()
    {
        using Act = void (*)(const QString &path);
        QTest::addColumn<Act>("act");
        QTest::addColumn<bool>("isOther");
        QTest::newRow("nothing") << Act([](const QString &) {}) << false;
        QTest::newRow("in the file") << Act([](const QString &path) {
            QTest::qWait(20); // longer than the steps of the clock that files have their times from
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadWrite));
            QCOMPARE(file.write("x"), 1);
        }) << true;
        QTest::newRow("another file in its place") << Act([](const QString &path) {
            const QString other = path + u'~';
            QVERIFY(QFile::copy(path, other));
            QVERIFY(QFile::remove(path) && QFile::rename(other, path));
        }) << true;
    }

    void whatAnotherProgramWritesAtOnceIsOfAnotherVersion()
    {
        using Act = void (*)(const QString &path);
        QFETCH(Act, act);
        QFETCH(bool, isOther);
        for (const QString &refused : {QString(), makingUnnamed}) {
            askedSystem = {.calls = {}, .refused = refused, .reason = EOPNOTSUPP};
            bool hasActed = false;
            askedSystem.onceRenamed = [&] {
                if (!std::exchange(hasActed, true))
                    act(m_path);
            };
            QString version;
            QVERIFY(replaceFile(m_path, QByteArray(mostComparedBytes + 1, ' '), &version));
            QVERIFY(hasActed);
            QVERIFY(!version.isEmpty());
            QCOMPARE(fileVersion(QUrl::fromLocalFile(m_path)) != version, isOther);
        }
    }

    void theOldFileStaysWhereTheSystemRefuses_data()
    {
        QTest::addColumn<QString>("refused");
        QTest::addColumn<int>("reason");
        QTest::newRow("the disk breaks") << newFileToDisk << EIO;
        QTest::newRow("the disk turns out to be full") << newFileToDisk << ENOSPC;
        QTest::newRow("the old file may not be replaced") << renaming << EPERM;
    }

    void theOldFileStaysWhereTheSystemRefuses()
    {
        QFETCH(QString, refused);
        QFETCH(int, reason);
        askedSystem.refused = refused;
        askedSystem.reason = reason;
        const bool isReplaced = replaceFile(m_path, newBytes);
        QVERIFY(askedSystem.calls.contains(refused));
        QVERIFY(!isReplaced);
        QCOMPARE(contents(), oldBytes);
        QCOMPARE(names(), QStringList{u"Sunday.quenara"_s});
    }

    void theFileIsSavedAsWellAsTheSystemCan_data()
    {
        QTest::addColumn<QString>("refused");
        QTest::addColumn<int>("reason");
        QTest::newRow("no files without a name") << makingUnnamed << EOPNOTSUPP;
        QTest::newRow("no name for one") << naming << EPERM;
        QTest::newRow("no disk to wait for") << newFileToDisk << EINVAL;
        QTest::newRow("no way to wait for a folder") << folderToDisk << EIO;
    }

    void theFileIsSavedAsWellAsTheSystemCan()
    {
        QFETCH(QString, refused);
        QFETCH(int, reason);
        askedSystem.refused = refused;
        askedSystem.reason = reason;
        constexpr mode_t permissions = 0640;
        QCOMPARE(::chmod(QFile::encodeName(m_path).constData(), permissions), 0);
        QVERIFY(replaceFile(m_path, newBytes));
        QVERIFY(askedSystem.calls.contains(refused));
        QCOMPARE(contents(), newBytes);
        QCOMPARE(names(), QStringList{u"Sunday.quenara"_s});
        struct stat attributes
        {};
        QCOMPARE(::stat(QFile::encodeName(m_path).constData(), &attributes), 0);
        QCOMPARE(attributes.st_mode & 07777U, permissions);
    }
};

QUENARA_TEST(TestSavingToDisk)

} // namespace tst_saving_to_disk

#include "tst_saving_to_disk.moc"
