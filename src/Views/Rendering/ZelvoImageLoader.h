#pragma once

#include "SlideMedia.h"

#include <QImage>

namespace quenara {

/// Decodes media. Stateless.
struct ZelvoImageLoader
{
    /// The picture in the media's data URL (strict base64 after the first comma; the media type is
    /// ignored), or in the file that a file URL or a plain path names. Turned upright as it says of
    /// itself. Null if there is none to be had.
    static QImage image(const SlideMedia &media);
};

} // namespace quenara
