#include "ImageFile.h"

#include "FileReading.h"
#include "ImageBytes.h"

#include <QImageReader>
#include <QMimeDatabase>

#include <new>

namespace quenara {

namespace {

/// Base64 makes four bytes of every three.
constexpr qint64 largestImage = largestFile / 4 * 3;

/// Qt's name for the format in which the bytes can be read as an image; empty if there is none.
QByteArray readableFormat(const QByteArray &bytes)
{
    ImageBytes image(bytes);
    QImageReader &reader = image.reader();
    const QByteArray format = reader.format();
    constexpr QSize enough(64, 64);
    if (const QSize size = reader.size(); size.isValid())
        reader.setScaledSize(size.scaled(enough, Qt::KeepAspectRatio).expandedTo({1, 1}));
    return reader.read().isNull() ? QByteArray() : format;
}

/// The MIME type of an image; empty for anything else.
QString imageType(const QByteArray &bytes)
{
    const QMimeType type = QMimeDatabase().mimeTypeForData(bytes);
    const bool isImage = type.name().startsWith(QLatin1String("image/"));
    // An SVG drawing that begins with a long comment is recognized as XML only.
    const bool isXml = type.inherits(QStringLiteral("application/xml"));
    const QByteArray format = isImage || isXml ? readableFormat(bytes) : QByteArray();
    if (format.isEmpty())
        return {};
    if (isImage)
        return type.name();
    return format == "svg" ? QStringLiteral("image/svg+xml") : QString();
}

std::optional<SlideMedia> embedded(const QByteArray &bytes, const QString &name)
{
    const QString type = bytes.size() <= largestImage ? imageType(bytes) : QString();
    if (type.isEmpty())
        return std::nullopt;
    return SlideMedia{.dataUrl = "data:" + type.toLatin1() + ";base64," + bytes.toBase64(),
                      .name = name,
                      .mimeType = type};
}

} // namespace

std::optional<SlideMedia> imageFromFile(const QUrl &url)
{
    try {
        const std::optional<QByteArray> bytes = wholeFile(url, largestImage);
        return bytes ? embedded(*bytes, url.fileName()) : std::nullopt;
    } catch (const std::bad_alloc &) {
        return std::nullopt;
    }
}

std::optional<SlideMedia> imageFromBytes(const QByteArray &bytes, const QString &name)
{
    try {
        return embedded(bytes, name);
    } catch (const std::bad_alloc &) {
        return std::nullopt;
    }
}

} // namespace quenara
