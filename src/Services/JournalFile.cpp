#include "JournalFile.h"

#include "FileReading.h"
#include "Identifier.h"
#include "SessionJournal.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace quenara {

namespace {

constexpr auto ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr auto extension = ".journal";
/// Of a journal that is being begun, and then takes its place by being renamed.
constexpr auto newExtension = ".new";
/// From which age on one that is being begun was abandoned, in seconds.
constexpr qint64 abandonedAfter = 60;

enum class Lock : std::uint8_t { taken, held, missing };

/// Locks the file until it is closed, unless another open file has the lock. A file system that
/// refuses locks of whole files may have those of ranges, of which Linux binds one to the open file
/// as well. Missing where there are neither.
Lock tryToLock([[maybe_unused]] const QFile &file, [[maybe_unused]] bool isShared)
{
#ifdef Q_OS_UNIX
    bool isTaken = ::flock(file.handle(), (isShared ? LOCK_SH : LOCK_EX) | LOCK_NB) == 0;
#ifdef F_OFD_SETLK
    if (!isTaken && errno != EWOULDBLOCK) {
        struct flock all
        {};
        all.l_type = isShared ? F_RDLCK : F_WRLCK;
        all.l_whence = SEEK_SET;
        isTaken = ::fcntl(file.handle(), F_OFD_SETLK, &all) == 0;
    }
#endif
    if (isTaken)
        return Lock::taken;
    return errno == EWOULDBLOCK || errno == EACCES ? Lock::held : Lock::missing;
#else
    return Lock::missing;
#endif
}

/// Without locks, every journal counts as that of a running program.
bool lock(const QFile &file)
{
    return tryToLock(file, false) == Lock::taken;
}

/// Whether another open file has the lock.
bool isLocked(const QFile &file)
{
    return tryToLock(file, true) == Lock::held;
}

/// EINVAL: the file system has nothing to synchronize.
bool synchronized([[maybe_unused]] const QFile &file)
{
#ifdef Q_OS_LINUX
    return ::fdatasync(file.handle()) == 0 || errno == EINVAL;
#elif defined(Q_OS_UNIX)
    return ::fsync(file.handle()) == 0 || errno == EINVAL;
#else
    return true;
#endif
}

/// A name on the disk outlasts a loss of power once its folder is there, too.
void synchronizeFolder([[maybe_unused]] const QString &folder)
{
#ifdef Q_OS_UNIX
    const int descriptor =
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
#endif
}

/// Whether the open file is the one at \a path: another may have come to its place, or none.
bool isAt(const QString &path, [[maybe_unused]] const QFile &file)
{
#ifdef Q_OS_UNIX
    struct stat opened
    {};
    struct stat named
    {};
    return ::fstat(file.handle(), &opened) == 0
        && ::lstat(QFile::encodeName(path).constData(), &named) == 0
        && opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
#else
    return QFile::exists(path);
#endif
}

bool makeFolder(const QString &path)
{
    constexpr auto permissions = ownerOnly | QFileDevice::ExeOwner;
    const QDir folder(path);
    QDir().mkpath(QFileInfo(path).path());
    if (!folder.exists())
        return QDir().mkdir(path, permissions);
    return QFile::setPermissions(path, permissions);
}

bool write(QFile &file, const QByteArrayList &pieces)
{
    return std::all_of(pieces.cbegin(), pieces.cend(), [&file](const QByteArray &piece) {
        return file.write(piece) == piece.size();
    });
}

/// The open and locked file; null while a running program has it.
std::shared_ptr<QFile> locked(const QString &path)
{
    auto file = std::make_shared<QFile>(path);
    const bool isLocked = QFileInfo(path).isFile() && !QFileInfo(path).isSymbolicLink()
        && file->open(QIODevice::ReadWrite | QIODevice::ExistingOnly) && lock(*file)
        && isAt(path, *file);
    return isLocked ? file : nullptr;
}

/// The session in the journal at \a path, which a running program has; nothing if none has it.
std::optional<Session> sessionOfRunningProgram(const QString &path)
{
    // After the file is opened, and before its lock is looked at, the program may begin its journal
    // anew in another file of this name.
    constexpr int tries = 3;
    for (int i = 0; i < tries; ++i) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return std::nullopt;
        if (isLocked(file))
            return SessionJournal::read(file.read(file.size()));
        if (isAt(path, file))
            return std::nullopt;
    }
    return std::nullopt;
}

/// Whether the two paths lead to one file, by links or from different folders.
bool isSameFile(const QString &a, const QString &b)
{
    std::error_code error;
    return std::filesystem::equivalent(QFileInfo(a).filesystemFilePath(),
                                       QFileInfo(b).filesystemFilePath(), error);
}

/// Newest first.
QFileInfoList journalsIn(const QString &folder)
{
    const QStringList filter{QLatin1Char('*') + QLatin1String(extension)};
    return QDir(folder).entryInfoList(filter, QDir::Files, QDir::Time);
}

/// Takes away what processes have left that were ended while they began a journal.
void removeAbandoned(const QDir &folder)
{
    const QDateTime youngest = QDateTime::currentDateTime().addSecs(-abandonedAfter);
    const QStringList filter{QLatin1Char('*') + QLatin1String(extension)
                             + QLatin1String(newExtension)};
    const QFileInfoList files = folder.entryInfoList(filter, QDir::Files);
    for (const QFileInfo &file : files) {
        if (file.lastModified() < youngest && locked(file.filePath()))
            QFile::remove(file.filePath());
    }
}

} // namespace

JournalFile::JournalFile(QString folder)
    : m_folder(std::move(folder)),
      m_path(m_folder + QLatin1Char('/') + newIdentifier().toLower() + QLatin1String(extension))
{}

bool JournalFile::begin(const QByteArrayList &pieces, bool isDurable)
{
    if (!makeFolder(m_folder))
        return false;
    const QString newPath = m_path + QLatin1String(newExtension);
    QFile::remove(newPath);
    auto file = std::make_unique<QFile>(newPath);
    if (!file->open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered, ownerOnly))
        return false;
    std::error_code error;
    if (lock(*file) && write(*file, pieces) && (!isDurable || synchronized(*file))) {
        std::filesystem::rename(QFileInfo(newPath).filesystemFilePath(),
                                QFileInfo(m_path).filesystemFilePath(), error);
        if (!error) {
            m_file = std::move(file);
            m_isFolderSynchronized = false;
            return true;
        }
    }
    QFile::remove(newPath);
    return false;
}

bool JournalFile::isInPlace() const
{
    return m_file && isAt(m_path, *m_file);
}

bool JournalFile::append(const QByteArrayList &pieces)
{
    return m_file && write(*m_file, pieces);
}

bool JournalFile::synchronize()
{
    if (!m_file || !synchronized(*m_file))
        return false;
    if (!std::exchange(m_isFolderSynchronized, true))
        synchronizeFolder(m_folder);
    return true;
}

void JournalFile::remove()
{
    if (std::exchange(m_file, nullptr))
        QFile::remove(m_path);
}

void LeftOverJournal::remove() const
{
    QFile::remove(path);
}

QList<LeftOverJournal> leftOverJournals(const QString &folder, qint64 mostBytes)
{
    QList<LeftOverJournal> journals;
    removeAbandoned(folder);
    const QFileInfoList files = journalsIn(folder);
    for (const QFileInfo &info : files) {
        const std::shared_ptr<QFile> file = locked(info.filePath());
        constexpr qint64 firstBytes = 64;
        if (!file || !SessionJournal::isJournal(file->peek(firstBytes))
            || (file->size() > mostBytes && !journals.isEmpty()))
            continue;
        try {
            const auto bytes = wholeFile(QUrl::fromLocalFile(info.filePath()));
            if (!bytes)
                continue;
            if (const std::optional<Session> session = SessionJournal::read(*bytes)) {
                journals.append({info.filePath(), info.lastModified(), *session, file});
                mostBytes -= file->size();
            } else {
                QFile::remove(info.filePath());
            }
        } catch (const std::bad_alloc &) {
            continue; // another start may have the memory for it
        }
    }
    return journals;
}

bool isOpenElsewhere(const QUrl &file, const QString &folder, const QStringList &own)
{
    const QFileInfoList journals = journalsIn(folder);
    return std::any_of(journals.cbegin(), journals.cend(), [&](const QFileInfo &journal) {
        if (own.contains(journal.filePath()))
            return false;
        try {
            const std::optional<Session> session = sessionOfRunningProgram(journal.filePath());
            return session && session->file && isSameFile(*session->file, file.toLocalFile());
        } catch (const std::bad_alloc &) {
            return false; // no reason not to open the document
        }
    });
}

} // namespace quenara
