#include "FileReading.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <vector>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace quenara {

namespace {

/// Whether \a name could name a file at all. Qt warns of one that could not.
bool mayBeFile(const QString &name)
{
    return !name.isEmpty() && !name.contains(QChar::Null);
}

/// Opens a file that has an end. What it is, is asked before it is opened, which has effects on
/// some devices, and after, since another file may have come to its place.
bool openPlain(QFile &file)
{
    constexpr auto mode = QIODevice::ReadOnly | QIODevice::Unbuffered;
    if (!mayBeFile(file.fileName()) || !QFileInfo(file).isFile())
        return false;
#ifdef Q_OS_UNIX
    // Neither opening a pipe nor reading from the system's own files waits then.
    const int number =
        ::open(QFile::encodeName(file.fileName()).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    struct stat attributes
    {};
    const bool isPlain = ::fstat(number, &attributes) == 0 && S_ISREG(attributes.st_mode);
    if (isPlain && file.open(number, mode, QFile::AutoCloseHandle))
        return true;
    if (number >= 0)
        ::close(number);
    return false;
#else
    return file.open(mode);
#endif
}

constexpr auto hashOfVersions = QCryptographicHash::Blake2b_160;

QString versionOf(const QCryptographicHash &hash)
{
    return QString::fromLatin1(hash.result().toHex());
}

QString versionByTimes(const QFileInfo &file)
{
#ifdef Q_OS_LINUX
    struct stat attributes
    {};
    if (::stat(QFile::encodeName(file.filePath()).constData(), &attributes) == 0)
        return quenara::versionByTimes(attributes);
#endif
    return QStringLiteral("%1 %2").arg(file.size()).arg(file.lastModified().toMSecsSinceEpoch());
}

} // namespace

bool readFile(const QUrl &url, const std::function<void(QByteArrayView)> &take, qint64 limit)
{
    QFile file(url.toLocalFile());
    if (!url.isLocalFile() || !openPlain(file))
        return false;
    // Files of the system that may have no end tell no size, or one that is not true.
    const qint64 most = file.size();
    if (most > limit)
        return false;
    constexpr std::size_t pieceSize = 65536; // stays in the processor's cache
    std::vector<char> piece(pieceSize);
    qint64 total = 0;
    for (qint64 size = 1; size > 0 && total <= most; total += size) {
        size = file.read(piece.data(), qint64(piece.size()));
        if (size < 0)
            return false;
        take({piece.data(), size});
    }
    return total <= most;
}

std::optional<QByteArray> wholeFile(const QUrl &url, qint64 limit)
{
    QByteArray bytes;
    const bool isRead = readFile(
        url, [&bytes](QByteArrayView piece) { bytes.append(piece); }, limit);
    return isRead ? std::optional(std::move(bytes)) : std::nullopt;
}

QString fileVersion(const QUrl &url)
{
    const QString name = url.toLocalFile();
    const QFileInfo file(mayBeFile(name) ? name : QString());
    if (!file.isFile())
        return {};
    QCryptographicHash hash(hashOfVersions);
    const bool isRead = readFile(
        url, [&hash](QByteArrayView piece) { hash.addData(piece); }, mostComparedBytes);
    return isRead ? versionOf(hash) : versionByTimes(file);
}

QString versionOf(QByteArrayView bytes)
{
    if (bytes.size() > mostComparedBytes)
        return {};
    QCryptographicHash hash(hashOfVersions);
    hash.addData(bytes);
    return versionOf(hash);
}

#ifdef Q_OS_LINUX

QString versionByTimes(const struct stat &attributes)
{
    const auto time = [](const timespec &since) {
        return QStringLiteral("%1.%2").arg(since.tv_sec).arg(since.tv_nsec);
    };
    return QStringLiteral("%1 %2 %3 %4")
        .arg(QString::number(attributes.st_size), QString::number(attributes.st_ino),
             time(attributes.st_mtim), time(attributes.st_ctim));
}

#endif

} // namespace quenara
