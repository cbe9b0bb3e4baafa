#pragma once

#include <QImage>
#include <QPainter>
#include <QRect>
#include <QRectF>

namespace quenara {

/// An image under black of some opacity. What lies between two shades that can be shown is shown as
/// a pattern of both, as in a gradient, so that a sky has no bands.
struct DarkenedImage
{
    QImage image; ///< RGB32 or ARGB32 premultiplied
    double dim; ///< opacity of the black over the image and what it leaves free, 0 to 1

    /// Fills \a place with the image, as far as it lies within \a pixels. The painter's coordinates
    /// must be device pixels.
    void paint(QPainter &painter, const QRectF &place, const QRect &pixels) const;
};

} // namespace quenara
