#include "ImageElementRenderView.h"

#include "DashedOutline.h"
#include "DevicePixels.h"
#include "Fonts.h"
#include "RenderCaches.h"

#include <algorithm>

namespace quenara {

namespace {

// The placeholder's sizes are points of the screen, whatever the scale of the slide.
constexpr double labelSize = 22;
constexpr double borderWidth = 2;
constexpr double dashLength = 8;
constexpr double dashGap = 6;

double enlargement(const QSizeF &size, const QRectF &box)
{
    return std::max(box.width() / size.width(), box.height() / size.height());
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

QRectF filledPlace(const QSizeF &size, const QRectF &box)
{
    QRectF place(QPointF(), size * enlargement(size, box));
    place.moveCenter(box.center());
    return place;
}

QRectF filledPart(const QSizeF &size, const QRectF &box, const QRectF &place)
{
    const double enlarged = enlargement(size, box);
    const QPointF corner = place.topLeft() - filledPlace(size, box).topLeft();
    return {corner.x() / enlarged, corner.y() / enlarged, place.width() / enlarged,
            place.height() / enlarged};
}

void ImageElementRenderView::paint(QPainter &painter, const QRectF &box, RenderCaches &caches) const
{
    if (box.isEmpty())
        return;
    const QSize needed = wholePixels(box.size() * deviceScale(painter));
    const QImage image = media ? caches.images.image(*media, needed) : QImage();
    if (image.isNull()) {
        paintPlaceholder(painter, box);
    } else {
        painter.drawImage(box, image, filledPart(image.size(), box, box));
    }
}

} // namespace quenara
