#pragma once

#include "SlideMedia.h"

#include <QImage>
#include <QSize>

namespace quenara {

/// An image as it was decoded, at its full size or smaller.
struct DecodedImage
{
    QImage image; ///< upright; null if there is no image to be had
    QSize fullSize; ///< pixels of the whole image, upright
    int reduction = 1; ///< by which both sides were divided; a power of two
};

/// Decodes media. Stateless.
struct ZelvoImageLoader
{
    /// The image in the media's data URL (strict base64 after the first comma; the media type is
    /// ignored), or in the file that a file URL or a plain path names. Turned upright as the
    /// image's own orientation says, its colours converted to sRGB from what its profile says. Null
    /// if there is none to be had, or only a part of one.
    [[nodiscard]] static QImage image(const SlideMedia &media);

    /// The same, reduced as far as it still has \a needed pixels each way.
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
