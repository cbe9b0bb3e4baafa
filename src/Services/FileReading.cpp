#include "FileReading.h"

#include <QFile>
#include <QFileInfo>

namespace quenara {

std::optional<QByteArray> wholeFile(const QUrl &url, qint64 limit)
{
    // Reading a pipe or a device might never end.
    QFile file(url.toLocalFile());
    if (!url.isLocalFile() || !QFileInfo(file).isFile() || file.size() > limit
        || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QByteArray bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? std::optional(std::move(bytes)) : std::nullopt;
}

} // namespace quenara
