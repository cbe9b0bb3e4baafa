#include "ChildProcess.h"
#include "FileReplacement.h"
#include "ProjectFileService.h"
#include "ProjectTemplates.h"
#include "TestMain.h"
#include "TestSupport.h"
#include "UnnamedFiles.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <grp.h>
#include <iterator>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_saving {

namespace {

constexpr int usual = 0644;

bool isRoot()
{
    return ::geteuid() == 0;
}

/// A group that this process is in: not its own one, if there is another.
gid_t anyGroup()
{
    gid_t groups[1024];
    const int count = ::getgroups(int(std::size(groups)), groups);
    for (int i = 0; i < count; ++i) {
        if (groups[i] != ::getegid())
            return groups[i];
    }
    return ::getegid();
}

/// A folder with a project file in it.
struct Folder
{
    QTemporaryDir folder{folderTemplateWithUnnamedFiles()};
    ZelvoProject project = ProjectTemplates::demoProject(someTime());
    QString path = folder.filePath(u"Sunday.quenara"_s);

    Folder() { save(path); }

    QUrl url() const { return QUrl::fromLocalFile(path); }
    void save(const QString &to) const
    {
        ProjectFileService::save(project, QUrl::fromLocalFile(to), someTime());
    }
    bool savingFails(const QString &to) const
    {
        try {
            save(to);
        } catch (const ProjectFileError &error) {
            return error == ProjectFileError(ProjectFileError::unableToWrite);
        }
        return false;
    }
    QStringList names() const
    {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
};

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

int mode(const QString &path)
{
    struct stat attributes
    {};
    ::stat(QFile::encodeName(path).constData(), &attributes);
    return int(attributes.st_mode & 07777U);
}

const QByteArray accessListName = "system.posix_acl_access";

/// An access list as the system stores it: that one more user may read.
QByteArray accessList()
{
    struct Entry
    {
        quint16 tag;
        quint16 permissions;
        quint32 identifier;
    };
    constexpr quint32 nobodyInParticular = ~0U;
    constexpr Entry entries[] = {{0x01, 6, nobodyInParticular}, // owner
                                 {0x02, 4, 12345}, // a user
                                 {0x04, 0, nobodyInParticular}, // group
                                 {0x10, 4, nobodyInParticular}, // the most for users and groups
                                 {0x20, 0, nobodyInParticular}}; // others
    constexpr quint32 version = 2;
    QByteArray list(reinterpret_cast<const char *>(&version), sizeof(version));
    return list.append(reinterpret_cast<const char *>(entries), sizeof(entries));
}

/// Empty if there is none.
QByteArray extendedAttribute(const QByteArray &path, const QByteArray &name)
{
    QByteArray value(1000, '\0');
    value.truncate(std::max<ssize_t>(
        0,
        ::getxattr(path.constData(), name.constData(), value.data(), std::size_t(value.size()))));
    return value;
}

} // namespace

class TestSaving : public QObject
{
    Q_OBJECT

private slots:
    void aNewFileHasThePermissionsOfTheUsersMask()
    {
        const Folder f;
        const mode_t before = ::umask(027);
        f.save(f.folder.filePath(u"New.quenara"_s));
        ::umask(before);
        QCOMPARE(mode(f.folder.filePath(u"New.quenara"_s)), 0640);
    }

    void aReplacedFileKeepsItsPermissions_data()
    {
        QTest::addColumn<int>("permissions");
        QTest::newRow("private") << 0600;
        QTest::newRow("usual") << usual;
        QTest::newRow("shared with the group") << 0664;
        QTest::newRow("for all") << 0666;
    }

    void aReplacedFileKeepsItsPermissions()
    {
        QFETCH(int, permissions);
        const Folder f;
        QCOMPARE(::chmod(QFile::encodeName(f.path).constData(), mode_t(permissions)), 0);
        f.save(f.path);
        QCOMPARE(mode(f.path), permissions);
    }

    void aReplacedFileKeepsItsOwnerAndItsGroup()
    {
        const Folder f;
        // Only root may give files away; others may give them to a group that they are in.
        const uid_t owner = isRoot() ? 1001 : ::geteuid();
        const gid_t group = isRoot() ? 2000 : anyGroup();
        QCOMPARE(::chown(QFile::encodeName(f.path).constData(), owner, group), 0);
        f.save(f.path);
        QCOMPARE(QFileInfo(f.path).ownerId(), owner);
        QCOMPARE(QFileInfo(f.path).groupId(), group);
    }

    void aSharedFileStaysWithItsGroupAndIsOpenToNoOther_data()
    {
        QTest::addColumn<bool>("isMember");
        QTest::addColumn<int>("before");
        QTest::addColumn<int>("permissions");
        QTest::newRow("saved by a member of the group") << true << 0660 << 0660;
        if (!isRoot()) // who alone may become such a one
            return;
        QTest::newRow("saved by one who may not keep the group") << false << 0666 << 0606;
        QTest::newRow("whose group may do less than all others") << false << 0606 << 0600;
        QTest::newRow("run as its owner") << false << 06666 << 0606;
    }

    void aSharedFileStaysWithItsGroupAndIsOpenToNoOther()
    {
        QFETCH(bool, isMember);
        QFETCH(int, before);
        QFETCH(int, permissions);
        const Folder f;
        // Who is not root saves a file of their own.
        const uid_t saver = isRoot() ? 1002 : ::geteuid();
        const gid_t group = isRoot() ? 2000 : anyGroup();
        QCOMPARE(::chown(QFile::encodeName(f.path).constData(), isRoot() ? 1001 : saver, group), 0);
        QCOMPARE(::chmod(QFile::encodeName(f.path).constData(), mode_t(before)), 0);
        QCOMPARE(::chmod(QFile::encodeName(f.folder.path()).constData(), 0777), 0);
        const int status = statusOfProcess([&] {
            if (isRoot()
                && (::setgroups(isMember ? 1 : 0, &group) != 0 || ::setgid(saver) != 0
                    || ::setuid(saver) != 0)) {
                return 1;
            }
            return f.savingFails(f.path) ? 2 : 0;
        });
        QCOMPARE(status, 0);
        QCOMPARE(QFileInfo(f.path).ownerId(), saver);
        QCOMPARE(QFileInfo(f.path).groupId(), isMember ? group : saver);
        QCOMPARE(mode(f.path), permissions);
    }

    void theLongestNamesAreSaved_data()
    {
        QTest::addColumn<QString>("stem");
        QTest::newRow("letters") << QString(247, u'a');
        QTest::newRow("letters of two bytes") << QString(123, u'ä') + u'a';
    }

    void theLongestNamesAreSaved()
    {
        QFETCH(QString, stem);
        Folder f;
        const QString path = f.folder.filePath(stem + u".quenara"_s);
        QCOMPARE(QFile::encodeName(QFileInfo(path).fileName()).size(), 255);
        f.save(path);
        f.project.name = u"Again"_s;
        f.save(path);
        QCOMPARE(ProjectFileService::load(QUrl::fromLocalFile(path), someTime()).name, u"Again"_s);
        QCOMPARE(f.names().size(), 2);
    }

    void aLinkStaysAndItsTargetIsWritten_data()
    {
        QTest::addColumn<QString>("target");
        QTest::newRow("an absolute link") << u"%1/Sunday.quenara"_s;
        QTest::newRow("a relative link") << u"Sunday.quenara"_s;
        QTest::newRow("a link to nothing yet") << u"Monday.quenara"_s;
    }

    void aLinkStaysAndItsTargetIsWritten()
    {
        QFETCH(QString, target);
        Folder f;
        const QString link = f.folder.filePath(u"link.quenara"_s);
        const QString linkToLink = f.folder.filePath(u"linkToLink.quenara"_s);
        target = target.contains(u'%') ? target.arg(f.folder.path()) : target;
        QCOMPARE(
            ::symlink(QFile::encodeName(target).constData(), QFile::encodeName(link).constData()),
            0);
        QCOMPARE(::symlink("link.quenara", QFile::encodeName(linkToLink).constData()), 0);
        for (const QString &path : {link, linkToLink}) {
            f.project.name += u"!"_s;
            f.save(path);
            QVERIFY(QFileInfo(path).isSymLink());
            const QString written = QDir(f.folder.path()).filePath(target);
            QVERIFY(!QFileInfo(written).isSymLink());
            QCOMPARE(ProjectFileService::load(QUrl::fromLocalFile(written), someTime()).name,
                     f.project.name);
        }
    }

    void aLinkInALinkedFolderLeadsUpFromTheRealFolder()
    {
        const Folder f;
        const QDir folder(f.folder.path());
        QVERIFY(folder.mkpath(u"archive/2026"_s));
        const auto path = [&folder](const QString &name) { return folder.filePath(name); };
        QVERIFY(QFile::link(path(u"archive/2026"_s), path(u"current"_s)));
        QVERIFY(QFile::link(u"../Monday.quenara"_s, path(u"archive/2026/link.quenara"_s)));
        f.save(path(u"current/link.quenara"_s));
        QCOMPARE(contents(path(u"archive/Monday.quenara"_s)), contents(f.path));
        QCOMPARE(f.names(), (QStringList{u"archive"_s, u"current"_s, u"Sunday.quenara"_s}));
    }

    void linksAreFollowedAsFarAsTheSystemFollowsThem()
    {
        constexpr int longestChain = 40;
        Folder f;
        const auto linkAt = [&f](int length) {
            return length == 0 ? f.path : f.folder.filePath(u"link%1"_s.arg(length));
        };
        for (int length = 1; length <= longestChain + 1; ++length)
            QVERIFY(QFile::link(linkAt(length - 1), linkAt(length)));
        f.project.name = u"At the end of the chain"_s;
        QVERIFY(!f.savingFails(linkAt(longestChain)));
        const QByteArray saved = contents(f.path);
        QCOMPARE(ProjectFileService::load(f.url(), someTime()).name, f.project.name);
        f.project.name = u"Too far"_s;
        QVERIFY(f.savingFails(linkAt(longestChain + 1)));
        QCOMPARE(contents(f.path), saved);
        QVERIFY(QFileInfo(linkAt(1)).isSymLink());
    }

    void whatIsNoPlainFileIsLeftAsItIs_data()
    {
        QTest::addColumn<mode_t>("kind");
        QTest::addColumn<bool>("isLinked");
        for (const bool isLinked : {false, true}) {
            const char *how = isLinked ? "through a link" : "by its name";
            QTest::addRow("a pipe, %s", how) << mode_t(S_IFIFO) << isLinked;
            QTest::addRow("a socket, %s", how) << mode_t(S_IFSOCK) << isLinked;
            if (isRoot()) // who alone may make one
                QTest::addRow("a device, %s", how) << mode_t(S_IFCHR) << isLinked;
        }
    }

    void whatIsNoPlainFileIsLeftAsItIs()
    {
        QFETCH(mode_t, kind);
        QFETCH(bool, isLinked);
        const Folder f;
        const QString place = f.folder.filePath(u"Special.quenara"_s);
        const QString link = f.folder.filePath(u"link.quenara"_s);
        const dev_t device = makedev(1, 3); // takes all that is written
        QCOMPARE(::mknod(QFile::encodeName(place).constData(), kind | 0666, device), 0);
        QVERIFY(QFile::link(place, link));
        const QStringList names = f.names();
        QVERIFY(f.savingFails(isLinked ? link : place));
        struct stat attributes
        {};
        QCOMPARE(::lstat(QFile::encodeName(place).constData(), &attributes), 0);
        QCOMPARE(attributes.st_mode & S_IFMT, kind);
        QCOMPARE(f.names(), names);
    }

    void aReplacedFileKeepsItsExtendedAttributes_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("value");
        QTest::newRow("a note") << QByteArray("user.note") << QByteArray("for\0Sunday", 10);
        QTest::newRow("an empty note") << QByteArray("user.empty") << QByteArray("");
        QTest::newRow("an access list") << accessListName << accessList();
    }

    void aReplacedFileKeepsItsExtendedAttributes()
    {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, value);
        const Folder f;
        const QByteArray path = QFile::encodeName(f.path);
        QCOMPARE(::setxattr(path.constData(), name.constData(), value.constData(),
                            std::size_t(value.size()), 0),
                 0);
        const int before = mode(f.path);
        f.save(f.path);
        QCOMPARE(extendedAttribute(path, name), value);
        QCOMPARE(mode(f.path), before);
    }

    void aListThatTheFolderGivesItsFilesOpensNoReplacedOne()
    {
        const Folder f;
        const QByteArray list = accessList();
        QCOMPARE(::setxattr(QFile::encodeName(f.folder.path()).constData(),
                            "system.posix_acl_default", list.constData(), std::size_t(list.size()),
                            0),
                 0);
        QCOMPARE(::chmod(QFile::encodeName(f.path).constData(), 0640), 0);
        f.save(f.path);
        QCOMPARE(extendedAttribute(QFile::encodeName(f.path), accessListName), QByteArray());
        QCOMPARE(mode(f.path), 0640);
    }

    void anotherNameOfTheFileKeepsTheOldContent()
    {
        Folder f;
        const QByteArray before = contents(f.path);
        const QString other = f.folder.filePath(u"Backup.quenara"_s);
        QCOMPARE(
            ::link(QFile::encodeName(f.path).constData(), QFile::encodeName(other).constData()), 0);
        f.project.name = u"Changed"_s;
        f.save(f.path);
        QCOMPARE(contents(other), before);
        QCOMPARE(ProjectFileService::load(f.url(), someTime()).name, f.project.name);
    }

    void nothingIsLeftWhereSavingFails_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("a missing folder") << u"missing/Sunday.quenara"_s;
        QTest::newRow("a folder of the name") << u"folder"_s;
        QTest::newRow("a file where a folder should be") << u"Sunday.quenara/Monday.quenara"_s;
        QTest::newRow("a link in a circle") << u"circle"_s;
        QTest::newRow("a name that is too long") << QString(300, u'a');
    }

    void nothingIsLeftWhereSavingFails()
    {
        QFETCH(QString, name);
        Folder f;
        QVERIFY(QDir(f.folder.path()).mkdir(u"folder"_s));
        const QString circle = f.folder.filePath(u"circle"_s);
        QCOMPARE(::symlink("circle", QFile::encodeName(circle).constData()), 0);
        const QStringList names = f.names();
        const QByteArray before = contents(f.path);
        f.project.name = u"Changed"_s;
        QVERIFY(f.savingFails(f.folder.filePath(name)));
        QCOMPARE(f.names(), names);
        QCOMPARE(contents(f.path), before);
    }

    void aWriteProtectedFileOrFolderIsRespected()
    {
        Folder f;
        const QByteArray before = contents(f.path);
        f.project.name = u"Changed"_s;
        // Root may write anywhere.
        const auto failsAsNobody = [&f] {
            return statusOfProcess(
                [&f] { return dropPrivileges() && f.savingFails(f.path) ? 0 : 1; });
        };
        QFile::setPermissions(f.path, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
        QCOMPARE(::chmod(QFile::encodeName(f.folder.path()).constData(), 0777), 0);
        QCOMPARE(failsAsNobody(), 0);
        QCOMPARE(::chmod(QFile::encodeName(f.path).constData(), 0666), 0);
        QCOMPARE(::chmod(QFile::encodeName(f.folder.path()).constData(), 0555), 0);
        QCOMPARE(failsAsNobody(), 0);
        QCOMPARE(::chmod(QFile::encodeName(f.folder.path()).constData(), 0700), 0);
        QCOMPARE(f.names(), QStringList{u"Sunday.quenara"_s});
        QCOMPARE(contents(f.path), before);
    }

    void aWriteThatFailsHalfWayLeavesTheOldFileAlone_data()
    {
        QTest::addColumn<int>("bytes");
        QTest::newRow("at once") << 0;
        QTest::newRow("after a byte") << 1;
        QTest::newRow("half-way") << 20'000;
    }

    void aWriteThatFailsHalfWayLeavesTheOldFileAlone()
    {
        QFETCH(int, bytes);
        Folder f;
        const QByteArray before = contents(f.path);
        QVERIFY(before.size() > bytes);
        f.project.name = u"Changed"_s;
        const int status = statusOfProcess([&f, bytes] {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{rlim_t(bytes), rlim_t(bytes)};
            return ::setrlimit(RLIMIT_FSIZE, &limit) == 0 && f.savingFails(f.path) ? 0 : 1;
        });
        QCOMPARE(status, 0);
        QCOMPARE(f.names(), QStringList{u"Sunday.quenara"_s});
        QCOMPARE(contents(f.path), before);
    }

    void aKilledProcessLeavesTheOldFileOrTheNewOne()
    {
        constexpr int kills = 200;
        constexpr int longestLifeMicroseconds = 20'000;
        const Folder f;
        const auto version = [&f](int number) {
            ZelvoProject project = f.project;
            project.name = QString::number(number);
            return project;
        };

        QHash<QString, QByteArray> complete;
        for (int number : {0, 1}) {
            ProjectFileService::save(version(number), f.url(), someTime());
            complete.insert(QString::number(number), contents(f.path));
        }
        QVERIFY(hasUnnamedFiles(f.folder.path())); // else killed processes leave some
        QRandomGenerator random(1);
        QSet<QByteArray> left;
        for (int i = 0; i < kills; ++i) {
            const pid_t process = ::fork();
            if (process == 0) {
                for (int number = 0;; number = 1 - number)
                    ProjectFileService::save(version(number), f.url(), someTime());
            }
            ::usleep(useconds_t(random.bounded(longestLifeMicroseconds)));
            ::kill(process, SIGKILL);
            ::waitpid(process, nullptr, 0);
            const QByteArray bytes = contents(f.path);
            QVERIFY2(complete.values().contains(bytes),
                     qPrintable(u"after %1 kills there are %2 bytes"_s.arg(i).arg(bytes.size())));
            left.insert(bytes);
        }
        QCOMPARE(left.size(), 2); // else the processes did not come to save
        QStringList others = f.names();
        others.removeOne(u"Sunday.quenara"_s);
        for (const QString &other : others) {
            QVERIFY(other.startsWith(u".saving-"_s));
            QVERIFY(complete.values().contains(contents(f.folder.filePath(other))));
        }
        f.save(f.path);
        QCOMPARE(f.names(), QStringList{u"Sunday.quenara"_s});
    }

    void everyByteIsWritten_data()
    {
        QTest::addColumn<qsizetype>("size");
        QTest::newRow("none") << qsizetype(0);
        QTest::newRow("one") << qsizetype(1);
        QTest::newRow("many") << qsizetype(5'000'001);
    }

    void everyByteIsWritten()
    {
        QFETCH(qsizetype, size);
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"bytes"_s);
        QVERIFY(replaceFile(path, QByteArray(7'000'000, 'o')));
        QVERIFY(replaceFile(path, QByteArray(size, 'n')));
        QCOMPARE(contents(path), QByteArray(size, 'n'));
    }
};

QUENARA_TEST(TestSaving)

} // namespace tst_saving

#include "tst_saving.moc"
