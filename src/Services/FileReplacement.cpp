#include "FileReplacement.h"

#include "FileReading.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_LINUX
#include <QCryptographicHash>
#include <QDir>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#else
#include <QSaveFile>
#endif

namespace quenara {

namespace {

/// The file behind a chain of symbolic links, which need not exist; a link if they go in a circle.
QFileInfo linkTarget(const QString &path)
{
    constexpr int longestChain = 40;
    QFileInfo file(path);
    for (int length = 0; file.isSymbolicLink() && length < longestChain; ++length) {
        // Qt resolves ".." by the text of a path; in a linked folder it leads elsewhere.
        const std::filesystem::path link = file.filesystemFilePath();
        std::error_code error;
        file.setFile(link.parent_path() / std::filesystem::read_symlink(link, error));
    }
    return file;
}

#ifdef Q_OS_LINUX

constexpr mode_t everything = 0666; // less the user's mask

/// An open file or folder.
class Descriptor
{
public:
    Descriptor(const QString &path, int flags, mode_t mode = 0)
        : m_number(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, mode))
    {}
    ~Descriptor()
    {
        if (isOpen())
            ::close(m_number);
    }
    Q_DISABLE_COPY_MOVE(Descriptor)

    bool isOpen() const { return m_number >= 0; }

    /// False if another process holds the lock, which it does until it has closed the file.
    bool lock() const { return ::flock(m_number, LOCK_EX | LOCK_NB) == 0; }

    bool write(QByteArrayView bytes) const
    {
        while (!bytes.isEmpty()) {
            const ssize_t written = ::write(m_number, bytes.data(), std::size_t(bytes.size()));
            if (written < 0 && errno != EINTR)
                return false;
            bytes = bytes.sliced(std::max<ssize_t>(written, 0));
        }
        return true;
    }

    /// EINVAL: the file system has nothing to synchronize.
    bool synchronize() const { return ::fsync(m_number) == 0 || errno == EINVAL; }

    /// Takes over the permissions of the file at \a path, its extended attributes and, as far as
    /// this user may give them away, its owner and its group. Nobody may do more with this file
    /// than with that one: where its group or its access list cannot be taken over, the group gets
    /// no permissions, and others none that the group did not have.
    bool takeAttributes(const QString &path) const
    {
        struct stat attributes
        {};
        if (::stat(QFile::encodeName(path).constData(), &attributes) != 0)
            return false;
        constexpr auto same = uid_t(-1);
        constexpr mode_t permissions = 07777;
        constexpr mode_t bitsOfAClass = 3;
        mode_t mode = attributes.st_mode & permissions;
        const bool hasGroup = ::fchown(m_number, same, attributes.st_gid) == 0;
        const bool hasOwner = ::fchown(m_number, attributes.st_uid, gid_t(same)) == 0;
        if (!takeExtendedAttributes(path) || !hasGroup) {
            const mode_t ofGroup = (mode & S_IRWXG) >> bitsOfAClass;
            mode &= ~mode_t(S_IRWXG | S_IRWXO | S_ISGID) | ofGroup;
        }
        if (!hasOwner)
            mode &= ~mode_t(S_ISUID);
        return ::fchmod(m_number, mode) == 0;
    }

    struct stat attributes() const
    {
        struct stat attributes
        {};
        ::fstat(m_number, &attributes);
        return attributes;
    }

    bool giveName(const QString &path) const
    {
        const QByteArray self = "/proc/self/fd/" + QByteArray::number(m_number);
        return ::linkat(AT_FDCWD, self.constData(), AT_FDCWD, QFile::encodeName(path).constData(),
                        AT_SYMLINK_FOLLOW)
            == 0;
    }

private:
    /// False if the access list of the file at \a path could not be taken over. Other attributes
    /// stay where they may: those of the system only its administrator can set.
    bool takeExtendedAttributes(const QString &path) const
    {
        constexpr const char *accessList = "system.posix_acl_access";
        // A folder may have given the file a list that the old one did not have.
        ::fremovexattr(m_number, accessList);
        const QByteArray file = QFile::encodeName(path);
        QByteArray names(std::max<ssize_t>(0, ::listxattr(file.constData(), nullptr, 0)), '\0');
        names.truncate(std::max<ssize_t>(
            0, ::listxattr(file.constData(), names.data(), std::size_t(names.size()))));
        bool isListTaken = true;
        for (const QByteArray &name : names.split('\0')) {
            if (!name.isEmpty() && !takeExtendedAttribute(file, name) && name == accessList)
                isListTaken = false;
        }
        return isListTaken;
    }

    bool takeExtendedAttribute(const QByteArray &file, const QByteArray &name) const
    {
        const ssize_t size = ::getxattr(file.constData(), name.constData(), nullptr, 0);
        QByteArray value(std::max<ssize_t>(0, size), '\0');
        const ssize_t read =
            ::getxattr(file.constData(), name.constData(), value.data(), std::size_t(value.size()));
        return size >= 0 && read == size
            && ::fsetxattr(m_number, name.constData(), value.constData(), std::size_t(size), 0)
            == 0;
    }

    int m_number;
};

/// What the names of new files begin with until these take the place of \a target: hidden, and of
/// a fixed length, since the target's name may already be as long as names can be.
QString passingName(const QFileInfo &target)
{
    const QByteArray name =
        QCryptographicHash::hash(QFile::encodeName(target.fileName()), QCryptographicHash::Sha1);
    return QStringLiteral(".saving-") + QLatin1String(name.toHex());
}

/// Removes what killed processes have left while they saved the same file. That of a process which
/// still saves is locked.
void removeLeftOvers(const QFileInfo &target)
{
    const QDir folder(target.path());
    constexpr auto hidden = QDir::Files | QDir::Hidden | QDir::NoSymLinks;
    for (const QString &name : folder.entryList({passingName(target) + u'*'}, hidden)) {
        const QString path = folder.filePath(name);
        const Descriptor file(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
        if (file.isOpen() && file.lock())
            QFile::remove(path);
    }
}

/// Makes \a file, which is new, what shall take the place of \a target.
bool fill(const Descriptor &file, const QFileInfo &target, const QByteArray &bytes)
{
    file.lock(); // fails only where there are no locks
    return file.write(bytes) && (!target.exists() || file.takeAttributes(target.filePath()))
        && file.synchronize();
}

/// Moves the whole \a file at \a passing to its place. In \a version comes the one by its times.
bool takePlace(const Descriptor &file, const QString &passing, const QFileInfo &target,
               QString &version)
{
    struct stat attributes = file.attributes();
    if (::rename(QFile::encodeName(passing).constData(),
                 QFile::encodeName(target.filePath()).constData())
        != 0) {
        QFile::remove(passing);
        return false;
    }
    // Other programs can write to it from here on. The renaming alone is a change of ours.
    attributes.st_ctim = file.attributes().st_ctim;
    version = versionByTimes(attributes);
    // The file is whole already. This keeps a loss of power from bringing the old one back.
    const Descriptor folder(target.path(), O_RDONLY | O_DIRECTORY);
    if (folder.isOpen())
        folder.synchronize();
    return true;
}

/// Whether the file was replaced; nothing if the file system has no files without a name, or does
/// not give them one.
std::optional<bool> replaceByUnnamedFile(const QFileInfo &target, const QString &passing,
                                         const QByteArray &bytes, QString &version)
{
    const Descriptor file(target.path(), O_TMPFILE | O_WRONLY, everything);
    if (!file.isOpen())
        return std::nullopt;
    if (!fill(file, target, bytes))
        return false;
    // A new link cannot replace a file, but a renamed one can.
    if (!file.giveName(passing))
        return std::nullopt;
    return takePlace(file, passing, target, version);
}

bool replaceByNamedFile(const QFileInfo &target, const QString &passing, const QByteArray &bytes,
                        QString &version)
{
    constexpr mode_t ownersAlone = 0600; // until it has the permissions of the old one
    const Descriptor file(passing, O_CREAT | O_EXCL | O_WRONLY,
                          target.exists() ? ownersAlone : everything);
    if (!file.isOpen())
        return false;
    if (fill(file, target, bytes))
        return takePlace(file, passing, target, version);
    QFile::remove(passing);
    return false;
}

bool replace(const QFileInfo &target, const QByteArray &bytes, QString &version)
{
    removeLeftOvers(target);
    const quint64 number = QRandomGenerator::system()->generate64();
    const QString passing =
        QStringLiteral("%1/%2-%3")
            .arg(target.path(), passingName(target), QString::number(number, 16));
    const std::optional<bool> replaced = replaceByUnnamedFile(target, passing, bytes, version);
    return replaced ? *replaced : replaceByNamedFile(target, passing, bytes, version);
}

#else

bool replace(const QFileInfo &target, const QByteArray &bytes, QString &version)
{
    QSaveFile file(target.filePath());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return false;
    version = fileVersion(QUrl::fromLocalFile(target.filePath()));
    return true;
}

#endif

} // namespace

bool replaceFile(const QString &path, const QByteArray &bytes, QString *version)
{
    const QFileInfo target = linkTarget(path);
    // What is no plain file is not ours to remove: a device, a pipe that another program reads.
    if (target.isSymbolicLink() || (target.exists() && (!target.isFile() || !target.isWritable())))
        return false;
    QString byTimes;
    if (!replace(target, bytes, byTimes))
        return false;
    if (version) {
        const QString byBytes = versionOf(bytes);
        *version = byBytes.isEmpty() ? byTimes : byBytes;
    }
    return true;
}

} // namespace quenara
