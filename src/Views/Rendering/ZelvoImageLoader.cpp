#include "ZelvoImageLoader.h"

#include "ContainedDrawing.h"
#include "FileReading.h"
#include "ImageBytes.h"

#include <QColorSpace>
#include <QColorTransform>
#include <QImageReader>
#include <QUrl>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

namespace quenara {

namespace {

constexpr QByteArrayView dataScheme = "data:";

/// The largest image in memory: 67 megapixels at four bytes each. A larger one of a format that can
/// be read at a fraction of its size is reduced to that, which no screen shows.
constexpr int largestMegabytes = 256;
constexpr qint64 bytesPerPixel = 4;
constexpr int bitsPerPixel = 32;
constexpr qint64 largestPixelCount = (qint64(largestMegabytes) << 20U) / bytesPerPixel;

/// More than any camera or scanner gives. A few bytes may claim to hold more, which takes long to
/// read even at a fraction of the size.
constexpr qint64 mostStoredPixels = qint64(1) << 30U;

/// How long a drawing may take to paint at more than its own size.
constexpr double mostEnlargedEffort = 0.25e9; // nanoseconds

/// Whether the colours mean what those of a slide do, but for a rounding. That is taken to be so,
/// too, where a program has said no more than the usual exponent.
bool isSRgb(const QColorSpace &colors)
{
    constexpr float exponent = 2.2F;
    constexpr float nearly = 0.01F;
    const bool isExponentAlone = colors.primaries() == QColorSpace::Primaries::SRgb
        && colors.transferFunction() == QColorSpace::TransferFunction::Gamma
        && std::abs(colors.gamma() - exponent) < nearly;
    if (!colors.isValid() || isExponentAlone)
        return true;
    const QColorTransform transform =
        colors.transformationToColorSpace(QColorSpace(QColorSpace::SRgb));
    const auto stays = [&](QRgb color) {
        const QRgb mapped = transform.map(color);
        return std::abs(qRed(mapped) - qRed(color)) <= 1
            && std::abs(qGreen(mapped) - qGreen(color)) <= 1
            && std::abs(qBlue(mapped) - qBlue(color)) <= 1;
    };
    constexpr std::array<QRgb, 5> some{0xffc02020, 0xff20c020, 0xff2020c0, 0xff101010, 0xff808080};
    return std::all_of(some.begin(), some.end(), stays);
}

/// \a image in the colours of slides and the format that painters draw fastest.
QImage paintable(QImage image)
{
    const bool isTranslucent = image.hasAlphaChannel();
    if (!isSRgb(image.colorSpace())) {
        // Neither palettes nor shades of grey can be converted as they are.
        const bool hasFineShades = image.depth() > bitsPerPixel;
        image.convertTo(hasFineShades       ? QImage::Format_RGBA64
                            : isTranslucent ? QImage::Format_ARGB32
                                            : QImage::Format_RGB32);
        image.convertToColorSpace(QColorSpace(QColorSpace::SRgb));
    }
    image.convertTo(isTranslucent ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    return image;
}

QSize reduced(const QSize &size, int reduction)
{
    return {(size.width() + reduction - 1) / reduction,
            (size.height() + reduction - 1) / reduction};
}

/// Of an image whose reader did not know its size before.
DecodedImage reducedAfterwards(const QImage &image, const QSize &needed)
{
    const int reduction = ZelvoImageLoader::reduction(image.size(), needed);
    const QImage result = reduction > 1
        ? image.scaled(reduced(image.size(), reduction), Qt::IgnoreAspectRatio,
                       Qt::SmoothTransformation)
        : image;
    return {paintable(result), image.size(), reduction};
}

/// The size of a drawing of \a fullSize pixels that covers \a needed, but no more than \a largest
/// times its own nor too many pixels.
QSize drawnSize(const QSize &fullSize, const QSize &needed, double largest)
{
    const QSizeF size(fullSize);
    const double covering =
        std::max(needed.width() / size.width(), needed.height() / size.height());
    const QSizeF drawn = size * std::min(covering, largest);
    return atLeastAPixel(drawn * filledScale(drawn));
}

/// \a effort is what it takes to paint the drawing at its own size.
DecodedImage drawn(QImageReader &reader, double effort, const QSize &needed)
{
    const QSize fullSize = reader.size();
    if (fullSize.isEmpty())
        return {};
    const double largest = std::max(1.0, std::sqrt(mostEnlargedEffort / std::max(1.0, effort)));
    reader.setScaledSize(drawnSize(fullSize, needed, largest));
    return {.image = paintable(reader.read()), .fullSize = fullSize, .largestScale = largest};
}

DecodedImage decoded(const QByteArray &bytes, const std::optional<QSize> &asked)
{
    DrawingAllowance allowance;
    ImageBytes content(bytes, allowance);
    QImageReader &reader = content.reader();
    if (content.isDrawing())
        return drawn(reader, allowance.paintingEffort, asked.value_or(reader.size()));
    constexpr int all = std::numeric_limits<int>::max();
    const QSize needed = asked.value_or(QSize(all, all));
    reader.setAutoTransform(true);
    const QSize stored = reader.size(); // before it is turned
    const bool isTurned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    const auto turned = [isTurned](const QSize &size) {
        return isTurned ? size.transposed() : size;
    };
    if (qint64(stored.width()) * stored.height() > mostStoredPixels)
        return {};
    const int reduction = ZelvoImageLoader::reduction(turned(stored), needed);
    if (reduction > 1)
        reader.setScaledSize(reduced(stored, reduction));
    const QImage image = reader.read();
    const bool isAsSaid = reduction > 1 || image.isNull() || image.size() == turned(stored);
    return isAsSaid ? DecodedImage{paintable(image), turned(stored), reduction}
                    : reducedAfterwards(image, needed);
}

/// The bytes that a data URL holds. Nothing if it has no comma or anything but padded base64 after
/// the first one.
std::optional<QByteArray> payload(const QByteArray &dataUrl)
{
    constexpr qsizetype group = 4;
    const qsizetype start = dataUrl.indexOf(',') + 1;
    if (start == 0 || (dataUrl.size() - start) % group != 0)
        return std::nullopt;
    auto decoding =
        QByteArray::fromBase64Encoding(dataUrl.mid(start), QByteArray::AbortOnBase64DecodingErrors);
    return decoding ? std::optional(std::move(*decoding)) : std::nullopt;
}

/// The bytes of a file; nothing if it cannot be read or holds more than any image in memory.
std::optional<QByteArray> contentOf(const QString &fileName)
{
    return wholeFile(QUrl::fromLocalFile(fileName), qint64(largestMegabytes) << 20U);
}

std::optional<QByteArray> bytesOf(const SlideMedia &media)
{
    return media.dataUrl.startsWith(dataScheme) ? payload(media.dataUrl)
                                                : contentOf(ZelvoImageLoader::fileName(media));
}

} // namespace

double filledScale(const QSizeF &size)
{
    constexpr double mostPixels = 1U << 24U;
    constexpr double longestSide = 32'767;
    return std::min({1.0, std::sqrt(mostPixels / size.width() / size.height()),
                     longestSide / std::max(size.width(), size.height())});
}

QSize atLeastAPixel(const QSizeF &size)
{
    return {std::max(1, int(std::round(size.width()))),
            std::max(1, int(std::round(size.height())))};
}

bool DecodedImage::isDecodedFor(const QSize &needed) const
{
    // What is too large to be read whole may be read at a fraction of its size.
    if (image.isNull() && (largestScale > 0 || fullSize.isEmpty()))
        return true;
    return largestScale > 0 ? image.size() == drawnSize(fullSize, needed, largestScale)
                            : reduction == ZelvoImageLoader::reduction(fullSize, needed);
}

QImage ZelvoImageLoader::image(const SlideMedia &media)
{
    const std::optional<QByteArray> bytes = bytesOf(media);
    return bytes ? decoded(*bytes, std::nullopt).image : QImage();
}

DecodedImage ZelvoImageLoader::image(const SlideMedia &media, const QSize &needed)
{
    const std::optional<QByteArray> bytes = bytesOf(media);
    return bytes ? decoded(*bytes, needed) : DecodedImage();
}

int ZelvoImageLoader::reduction(const QSize &fullSize, const QSize &needed)
{
    int reduction = 1;
    while (fullSize.width() / (2 * reduction) >= std::max(1, needed.width())
           && fullSize.height() / (2 * reduction) >= std::max(1, needed.height()))
        reduction *= 2;
    const qint64 pixelCount = qint64(fullSize.width()) * fullSize.height();
    while (pixelCount / reduction / reduction >= largestPixelCount)
        reduction *= 2;
    return reduction;
}

void ZelvoImageLoader::limitMemory()
{
    QImageReader::setAllocationLimit(largestMegabytes);
}

QString ZelvoImageLoader::fileName(const SlideMedia &media)
{
    if (media.dataUrl.startsWith(dataScheme))
        return {};
    const QString text = QString::fromUtf8(media.dataUrl);
    const QUrl url(text, QUrl::StrictMode);
    const QString name = url.isLocalFile() ? url.toLocalFile() : text;
    return name.contains(QChar::Null) ? QString() : name; // no file is called so
}

} // namespace quenara
