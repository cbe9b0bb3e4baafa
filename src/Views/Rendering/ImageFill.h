#pragma once

#include "ZelvoImageLoader.h"

#include <QImage>
#include <QRect>
#include <QRectF>
#include <QSize>

namespace quenara {

/// How an image is wanted: at its aspect ratio in the middle of an area that it fills, without what
/// reaches beyond.
struct ImageFill
{
    QSize area; ///< pixels
    QRect part = {}; ///< of the area that is wanted, all of it if null
    /// The standard deviation in pixels of a blur, which brings in what the image has beyond the
    /// area. Where it has nothing, it fades.
    double blur = 0;

    bool operator==(const ImageFill &) const = default;
};

/// An image as it is wanted.
struct FilledImage
{
    QImage image; ///< null if there is none to be had
    QRectF place; ///< of the image, from the area's top left, in the area's pixels

    /// The place if the area is stretched to \a area.
    [[nodiscard]] QRectF placeIn(const QRectF &area, const ImageFill &fill) const;
};

/// \a decoded as \a fill wants it, pixel by pixel, with what its blur needs around the area. One of
/// more pixels than filledScale() allows has fewer, to be enlarged.
[[nodiscard]] FilledImage filled(const DecodedImage &decoded, const ImageFill &fill);

} // namespace quenara
