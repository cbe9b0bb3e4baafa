#include "DeviceLayer.h"

#include "DevicePixels.h"
#include "PaintingWorkarounds.h"

namespace quenara {

DeviceLayer DeviceLayer::painted(const QPainter &painter, const QRectF &bounds, int margin,
                                 const std::function<void(QPainter &)> &paint, int reduction)
{
    const QTransform transform = painter.deviceTransform();
    const QRect covered = visiblePixels(painter, bounds, margin);
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
    painter.setRenderHint(QPainter::SmoothPixmapTransform, reduction > 1);
    if (isOnPage(painter)) {
        // Who shows the page may enlarge an image without smoothing it.
        painter.drawImage(origin,
                          image.scaled(image.size() * reduction, Qt::IgnoreAspectRatio,
                                       Qt::SmoothTransformation));
    } else if (reduction == 1) {
        painter.drawImage(origin, image);
    } else {
        const QRectF enlarged(origin, image.size() * reduction);
        paintInBands(painter, enlarged, 1, [&] { painter.drawImage(enlarged, image); });
    }
    painter.restore();
}

} // namespace quenara
