#pragma once

#include "SlideMedia.h"

#include <QImage>
#include <QSize>

namespace quenara {

/// By how much \a size must be multiplied, at most by one, to be that of an image as it is held to
/// be painted: of no more than 16.7 million pixels, and no side beyond what painters can address.
[[nodiscard]] double filledScale(const QSizeF &size);

/// \a size in whole pixels, at least one each way.
[[nodiscard]] QSize atLeastAPixel(const QSizeF &size);

/// An image as it was decoded: at its full size or smaller, or, if it is a drawing, at any size.
struct DecodedImage
{
    QImage image; ///< upright; null if there is no image to be had
    QSize fullSize; ///< pixels of the whole image, upright
    int reduction = 1; ///< by which both sides were divided; a power of two
    double largestScale = 0; ///< by which both sides of a drawing may be multiplied; 0 for others

    /// Whether it would be decoded as it is if \a needed were asked for.
    [[nodiscard]] bool isDecodedFor(const QSize &needed) const;
};

/// Decodes media. Stateless.
struct ZelvoImageLoader
{
    /// The image in the media's data URL (strict base64 after the first comma; the media type is
    /// ignored), or in the file that a file URL or a plain path names. Turned upright as the
    /// image's own orientation says, its colours converted to sRGB from what its profile says. Null
    /// if there is none to be had, or only a part of one.
    [[nodiscard]] static QImage image(const SlideMedia &media);

    /// The same, reduced as far as it still has \a needed pixels each way. A drawing is painted as
    /// large as it has to be for that, or as it takes a quarter of a second to paint.
    [[nodiscard]] static DecodedImage image(const SlideMedia &media, const QSize &needed);

    /// The largest power of two by which an image of \a fullSize pixels can be divided and keep
    /// \a needed pixels each way; larger still where the image would take more memory than any may.
    [[nodiscard]] static int reduction(const QSize &fullSize, const QSize &needed);

    /// The file that \a media names instead of holding the image; empty if it holds it.
    [[nodiscard]] static QString fileName(const SlideMedia &media);

    /// Sets the memory that Qt lets a single image take in this process. To be called once, before
    /// anything is decoded.
    static void limitMemory();
};

} // namespace quenara
