#include "ZelvoImageLoader.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QUrl>

namespace quenara {

namespace {

QImage decoded(QIODevice &device)
{
    QImageReader reader(&device);
    reader.setAutoTransform(true);
    reader.setDecideFormatFromContent(true);
    return reader.read();
}

QImage imageFromFile(const QString &path)
{
    if (path.isEmpty())
        return {};
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? decoded(file) : QImage();
}

} // namespace

QImage ZelvoImageLoader::image(const SlideMedia &media)
{
    if (media.dataUrl.startsWith("data:")) {
        const qsizetype comma = media.dataUrl.indexOf(',');
        if (comma < 0)
            return {};
        const auto payload = QByteArray::fromBase64Encoding(
            media.dataUrl.mid(comma + 1), QByteArray::AbortOnBase64DecodingErrors);
        if (!payload)
            return {};
        QByteArray bytes = *payload;
        QBuffer buffer(&bytes);
        return buffer.open(QIODevice::ReadOnly) ? decoded(buffer) : QImage();
    }
    const QString text = QString::fromUtf8(media.dataUrl);
    const QUrl url(text, QUrl::StrictMode);
    return imageFromFile(url.isLocalFile() ? url.toLocalFile() : text);
}

} // namespace quenara
