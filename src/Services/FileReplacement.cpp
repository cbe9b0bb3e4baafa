#include "FileReplacement.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_LINUX
#include <QCryptographicHash>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
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

bool replaceByNamedFile(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

#ifdef Q_OS_LINUX

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
    int number() const { return m_number; }

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

    /// Takes over the permissions of the file at \a path and, as far as this user may give them
    /// away, its owner and its group. If the group stays another one, it gets no permissions.
    bool takeAttributes(const QString &path) const
    {
        struct stat attributes
        {};
        if (::stat(QFile::encodeName(path).constData(), &attributes) != 0)
            return false;
        constexpr auto same = uid_t(-1);
        constexpr mode_t permissions = 07777;
        mode_t mode = attributes.st_mode & permissions;
        if (::fchown(m_number, same, attributes.st_gid) != 0)
            mode &= ~mode_t(S_IRWXG);
        [[maybe_unused]] const int owner = ::fchown(m_number, attributes.st_uid, gid_t(same));
        return ::fchmod(m_number, mode) == 0;
    }

    bool giveName(const QString &path) const
    {
        const QByteArray self = "/proc/self/fd/" + QByteArray::number(m_number);
        return ::linkat(AT_FDCWD, self.constData(), AT_FDCWD, QFile::encodeName(path).constData(),
                        AT_SYMLINK_FOLLOW)
            == 0;
    }

private:
    int m_number;
};

/// The name of the new file until it takes the old one's place: hidden, and of a fixed length,
/// since the target's name may already be as long as names can be.
QString passingPath(const QFileInfo &target)
{
    const QByteArray name =
        QCryptographicHash::hash(QFile::encodeName(target.fileName()), QCryptographicHash::Sha1);
    return QStringLiteral("%1/.saving-%2").arg(target.path(), QLatin1String(name.toHex()));
}

/// Whether the file was replaced; nothing if the file system has no files without a name.
std::optional<bool> replaceByUnnamedFile(const QFileInfo &target, const QByteArray &bytes)
{
    constexpr mode_t newFileMode = 0666; // less the user's mask
    const Descriptor file(target.path(), O_TMPFILE | O_WRONLY, newFileMode);
    if (!file.isOpen())
        return std::nullopt;
    const QString path = target.filePath();
    if (!file.write(bytes) || (target.exists() && !file.takeAttributes(path))
        || !file.synchronize())
        return false;
    // A new link cannot replace a file, but a renamed one can. What a killed process has left under
    // the passing name is removed first.
    const QString passing = passingPath(target);
    QFile::remove(passing);
    if (!file.giveName(passing))
        return std::nullopt;
    if (::rename(QFile::encodeName(passing).constData(), QFile::encodeName(path).constData())
        != 0) {
        QFile::remove(passing);
        return false;
    }
    // The file is whole already. This keeps a loss of power from bringing the old one back.
    const Descriptor folder(target.path(), O_RDONLY | O_DIRECTORY);
    if (folder.isOpen())
        folder.synchronize();
    return true;
}

#endif

} // namespace

bool replaceFile(const QString &path, const QByteArray &bytes)
{
    const QFileInfo target = linkTarget(path);
    if (target.isSymbolicLink() || target.isDir() || (target.exists() && !target.isWritable()))
        return false;
#ifdef Q_OS_LINUX
    if (const std::optional<bool> replaced = replaceByUnnamedFile(target, bytes))
        return *replaced;
#endif
    return replaceByNamedFile(target.filePath(), bytes);
}

} // namespace quenara
