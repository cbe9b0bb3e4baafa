#pragma once

#include <QImage>
#include <QPainter>
#include <QPoint>
#include <QRectF>

#include <functional>

namespace quenara {

/// A picture of a part of a paint device on which content is prepared as a whole before it is laid
/// over what is there.
struct DeviceLayer
{
    QImage image; ///< ARGB32 premultiplied, transparent where nothing was painted
    QPoint origin; ///< where its top left lies, in device pixels
    int reduction = 1; ///< how many device pixels each way one of the image stands for

    /// What \a paint draws, seen through the painter's transform. Covers \a bounds (the painter's
    /// coordinates) as far as it is visible, with \a margin device pixels around. The image is
    /// null when nothing of it is.
    static DeviceLayer painted(const QPainter &painter, const QRectF &bounds, int margin,
                               const std::function<void(QPainter &)> &paint, int reduction = 1);

    /// Lays the layer over \a painter's device.
    void draw(QPainter &painter, double opacity) const;
};

} // namespace quenara
