#include "DeviceLayer.h"

#include <QPaintDevice>

#include <cmath>

namespace quenara {

QRectF visibleDeviceRect(const QPainter &painter)
{
    // A widget lies somewhere on the device that it is painted to.
    const QTransform toDevice = painter.worldTransform().inverted() * painter.deviceTransform();
    const QRectF whole =
        toDevice.mapRect(QRectF(0, 0, painter.device()->width(), painter.device()->height()));
    if (!painter.hasClipping())
        return whole;
    return whole.intersected(painter.deviceTransform().mapRect(painter.clipBoundingRect()));
}

void useDevicePixels(QPainter &painter)
{
    painter.setWorldTransform(painter.deviceTransform().inverted() * painter.worldTransform());
}

DeviceLayer DeviceLayer::painted(const QPainter &painter, const QRectF &bounds, int margin,
                                 const std::function<void(QPainter &)> &paint, int reduction)
{
    const QTransform transform = painter.deviceTransform();
    const QMarginsF around(margin, margin, margin, margin);
    const QRect covered = transform.mapRect(bounds)
                              .marginsAdded(around)
                              .intersected(visibleDeviceRect(painter).marginsAdded(around))
                              .toAlignedRect();
    if (covered.isEmpty())
        return {};
    const QSize size((covered.width() + reduction - 1) / reduction,
                     (covered.height() + reduction - 1) / reduction);
    DeviceLayer layer{QImage(size, QImage::Format_ARGB32_Premultiplied), covered.topLeft(),
                      reduction};
    if (layer.image.isNull())
        return {};
    layer.image.fill(Qt::transparent);
    QPainter layerPainter(&layer.image);
    layerPainter.setRenderHints(painter.renderHints());
    layerPainter.setTransform(transform * QTransform::fromTranslate(-covered.left(), -covered.top())
                              * QTransform::fromScale(1.0 / reduction, 1.0 / reduction));
    paint(layerPainter);
    return layer;
}

void DeviceLayer::draw(QPainter &painter, double opacity) const
{
    if (image.isNull())
        return;
    painter.save();
    useDevicePixels(painter);
    painter.setOpacity(painter.opacity() * opacity);
    if (reduction == 1) {
        painter.drawImage(origin, image);
    } else {
        painter.drawImage(QRectF(origin, image.size() * reduction), image);
    }
    painter.restore();
}

double deviceScale(const QPainter &painter)
{
    return std::sqrt(std::abs(painter.deviceTransform().determinant()));
}

} // namespace quenara
