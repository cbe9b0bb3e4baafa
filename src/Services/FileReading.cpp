#include "FileReading.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <vector>

namespace quenara {

bool readFile(const QUrl &url, const std::function<void(QByteArrayView)> &take, qint64 limit)
{
    // Reading a pipe or a device might never end.
    QFile file(url.toLocalFile());
    if (!url.isLocalFile() || !QFileInfo(file).isFile() || file.size() > limit
        || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    constexpr std::size_t pieceSize = 65536; // stays in the processor's cache
    std::vector<char> piece(pieceSize);
    qint64 total = 0;
    for (qint64 size = 1; size > 0 && total <= limit; total += size) {
        size = file.read(piece.data(), qint64(piece.size()));
        if (size < 0)
            return false;
        take({piece.data(), size});
    }
    return total <= limit;
}

std::optional<QByteArray> wholeFile(const QUrl &url, qint64 limit)
{
    QByteArray bytes;
    const bool isRead = readFile(
        url, [&bytes](QByteArrayView piece) { bytes.append(piece); }, limit);
    return isRead ? std::optional(std::move(bytes)) : std::nullopt;
}

qint64 modificationTime(const QUrl &url)
{
    const QFileInfo file(url.toLocalFile());
    return file.exists() ? file.lastModified().toMSecsSinceEpoch() : 0;
}

} // namespace quenara
