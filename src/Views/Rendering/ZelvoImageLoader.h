#pragma once

#include "SlideMedia.h"

#include <QImage>
#include <QSize>

namespace quenara {

/// Decodes media. Stateless.
struct ZelvoImageLoader
{
    /// A picture, and how much smaller than it is it was decoded.
    struct Decoded
    {
        QImage image; ///< upright; null if there is no picture to be had
        QSize fullSize; ///< upright
        int reduction = 1; ///< a power of two
    };

    /// The picture in the media's data URL (strict base64 after the first comma; the media type is
    /// ignored), or in the file that a file URL or a plain path names. Turned upright as it says of
    /// itself. Null if there is none to be had.
    static QImage image(const SlideMedia &media);

    /// The same, reduced as far as it still has \a needed pixels each way.
    static Decoded image(const SlideMedia &media, const QSize &needed);

    /// The largest power of two by which a picture can be divided and keep \a needed pixels.
    static int reduction(const QSize &fullSize, const QSize &needed);

    /// The file that \a media names instead of holding the picture; empty if it holds it.
    static QString fileName(const SlideMedia &media);
};

} // namespace quenara
