#include "ImageElementRenderView.h"

#include "DashedOutline.h"
#include "DevicePixels.h"
#include "Fonts.h"
#include "RenderCaches.h"

namespace quenara {

namespace {

// The placeholder's sizes are points of the screen, whatever the scale of the slide.
constexpr double labelSize = 22;
constexpr double borderWidth = 2;
constexpr double dashLength = 8;
constexpr double dashGap = 6;

/// Whether the sides of what \a painter paints stand along the rows and columns of its device.
bool isUpright(const QPainter &painter)
{
    const QTransform toDevice = painter.deviceTransform();
    return toDevice.type() <= QTransform::TxScale && toDevice.m11() > 0 && toDevice.m22() > 0;
}

void paintPlaceholder(QPainter &painter, const QRectF &box)
{
    // Qt makes every dash, even those out of sight.
    const QRectF seen = box.intersected(reachableArea);
    painter.save();
    painter.setClipRect(seen, Qt::IntersectClip);
    painter.fillRect(seen, QColor::fromRgbF(0, 0, 0, 0.32F));
    const double half = borderWidth / 2;
    DashedOutline{.color = QColor::fromRgbF(1, 1, 1, 0.35F),
                  .width = borderWidth,
                  .dash = dashLength,
                  .gap = dashGap}
        .paint(painter, seen.adjusted(half, half, -half, -half));
    painter.setPen(QColor::fromRgbF(1, 1, 1, 0.62F));
    painter.setFont(systemFont(labelSize, QFont::DemiBold));
    painter.drawText(box, Qt::AlignCenter, QStringLiteral("Image"));
    painter.restore();
}

} // namespace

void ImageElementRenderView::paint(QPainter &painter, const QRectF &box, RenderCaches &caches) const
{
    if (box.isEmpty())
        return;
    painter.save();
    QRectF place = box;
    QSize area = wholePixels(box.size() * deviceScale(painter));
    const QRectF pixels = painter.deviceTransform().mapRect(box);
    if (isUpright(painter) && reachableArea.contains(pixels)) {
        // Pixel by pixel, from the nearest edge of one to the next.
        useDevicePixels(painter);
        const QRect nearest(pixels.topLeft().toPoint(),
                            pixels.bottomRight().toPoint() - QPoint(1, 1));
        area = nearest.size().expandedTo({1, 1});
        place = QRect(nearest.topLeft(), area);
    }
    const ImageFill fill{.area = area.expandedTo({1, 1})};
    const FilledImage filled = media ? caches.images.filling(*media, fill) : FilledImage();
    if (!filled.image.isNull())
        painter.drawImage(place, filled.image);
    painter.restore();
    if (filled.image.isNull())
        paintPlaceholder(painter, box);
}

} // namespace quenara
