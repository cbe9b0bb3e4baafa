#include "TransferredData.h"

#include "ImageFile.h"
#include "ProjectFileService.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QMimeData>
#include <QMimeDatabase>

#include <algorithm>
#include <array>

namespace quenara {

namespace {

/// As programs offer images, those first that keep a photograph as small as it was.
constexpr auto imageTypes = std::to_array<const char *>(
    {"image/svg+xml", "image/jpeg", "image/png", "image/webp", "image/gif", "image/bmp"});

QMimeType typeByName(const QUrl &file)
{
    return QMimeDatabase().mimeTypeForFile(file.toLocalFile(), QMimeDatabase::MatchExtension);
}

bool isNamedAsImage(const QUrl &file)
{
    return typeByName(file).name().startsWith(QLatin1String("image/"));
}

bool isNamedAsText(const QUrl &file)
{
    const QString type = typeByName(file).name();
    return type.startsWith(QLatin1String("text/")) && type != QLatin1String("text/html");
}

bool isNamedAsProject(const QUrl &file)
{
    const QString suffix = QFileInfo(file.toLocalFile()).suffix();
    return suffix.compare(QLatin1String(ProjectFileService::fileExtension), Qt::CaseInsensitive)
        == 0;
}

std::optional<QUrl> firstFile(const QMimeData &data, bool (*isWanted)(const QUrl &file))
{
    const QList<QUrl> files = filesIn(data);
    const auto found = std::find_if(files.cbegin(), files.cend(), isWanted);
    return found == files.cend() ? std::nullopt : std::optional(*found);
}

QByteArray asPng(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

QList<QUrl> filesIn(const QMimeData &data)
{
    QList<QUrl> files = data.urls();
    files.removeIf([](const QUrl &url) { return !url.isLocalFile(); });
    return files;
}

std::optional<QUrl> projectFileIn(const QMimeData &data)
{
    return firstFile(data, isNamedAsProject);
}

std::optional<QUrl> textFileIn(const QMimeData &data)
{
    return firstFile(data, isNamedAsText);
}

bool mayHoldImage(const QMimeData &data)
{
    if (!filesIn(data).isEmpty())
        return firstFile(data, isNamedAsImage).has_value();
    return data.hasImage()
        || std::any_of(imageTypes.begin(), imageTypes.end(),
                       [&](const char *type) { return data.hasFormat(QLatin1String(type)); });
}

std::optional<SlideMedia> imageIn(const QMimeData &data)
{
    const QList<QUrl> files = filesIn(data);
    for (const QUrl &file : files) {
        if (const std::optional<SlideMedia> image = imageFromFile(file))
            return image;
    }
    if (!files.isEmpty())
        return std::nullopt;
    const QString name = QStringLiteral("Pasted image");
    for (const char *type : imageTypes) {
        const QString format = QString::fromLatin1(type);
        if (!data.hasFormat(format))
            continue;
        if (const std::optional<SlideMedia> image = imageFromBytes(data.data(format), name))
            return image;
    }
    const auto image = data.hasImage() ? qvariant_cast<QImage>(data.imageData()) : QImage();
    return image.isNull() ? std::nullopt : imageFromBytes(asPng(image), name);
}

} // namespace quenara
