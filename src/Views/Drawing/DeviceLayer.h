#pragma once

#include <QImage>
#include <QPainter>
#include <QPoint>
#include <QRectF>

#include <functional>

namespace quenara {

/// An image of a part of a paint device. Content is prepared on it as a whole before it is laid
/// over what is there.
struct DeviceLayer
{
    QImage image; ///< ARGB32 premultiplied, transparent where nothing was painted
    QPoint origin; ///< of the image on the device, in device pixels
    int reduction = 1; ///< how many device pixels each way one pixel of the image stands for

    /// A layer with what \a paint draws through the painter's transform. It covers the visible part
    /// of \a bounds (the painter's coordinates) and \a margin device pixels around it. The image is
    /// null if no part is visible.
    [[nodiscard]] static DeviceLayer painted(const QPainter &painter, const QRectF &bounds,
                                             int margin,
                                             const std::function<void(QPainter &)> &paint,
                                             int reduction = 1);

    /// Draws the layer at its place on \a painter's device, at an opacity of 0 to 1.
    void draw(QPainter &painter, double opacity) const;
};

} // namespace quenara
