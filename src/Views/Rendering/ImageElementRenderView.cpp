#include "ImageElementRenderView.h"

#include "DashedOutline.h"
#include "DevicePixels.h"
#include "Fonts.h"
#include "RenderCaches.h"
#include "ZelvoImageLoader.h"

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

/// Where pixels are counted by whole numbers.
constexpr QRectF numberedPixels{-1e9, -1e9, 2e9, 2e9};

/// From the nearest edge of a pixel to the next, at least one each way.
QRect nearestPixels(const QRectF &rect)
{
    const QRect nearest(rect.topLeft().toPoint(), rect.bottomRight().toPoint() - QPoint(1, 1));
    return {nearest.topLeft(), nearest.size().expandedTo({1, 1})};
}

/// What is made of an image that fills \a area pixels, of which \a seen are painted on a slide of
/// \a slide pixels: all, as null, unless that is far more than the slide. Then it is tiles, so that
/// an image that is dragged is made anew after some of them only.
QRect partOf(const QSize &area, const QRect &seen, const QSize &slide)
{
    constexpr qint64 times = 4;
    constexpr int tiles = 8; // of a slide
    const auto pixelCount = [](const QSize &size) { return qint64(size.width()) * size.height(); };
    if (pixelCount(area) <= times * pixelCount(slide) && filledScale(area) == 1)
        return {};
    const QSize tile = (slide / tiles).expandedTo({1, 1});
    const auto tileAt = [](int pixel, int length) { return pixel / length * length; };
    const QRect whole(
        QPoint(tileAt(seen.left(), tile.width()), tileAt(seen.top(), tile.height())),
        QPoint(tileAt(seen.right(), tile.width()), tileAt(seen.bottom(), tile.height()))
            + QPoint(tile.width() - 1, tile.height() - 1));
    return whole & QRect(QPoint(), area);
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
    const QRectF exact = painter.deviceTransform().mapRect(box);
    const bool isPixelByPixel = isUpright(painter) && numberedPixels.contains(exact);
    if (box.isEmpty())
        return;
    ImageFill fill{.area = wholePixels(box.size() * deviceScale(painter)).expandedTo({1, 1})};
    QRect nearest;
    if (isPixelByPixel) {
        nearest = nearestPixels(exact);
        fill.area = nearest.size();
    }
    if (isPixelByPixel && !slide.isNull()) {
        const QRect slidePixels = touchedPixels(painter, slide).toRect();
        const QRect seen = nearest & slidePixels;
        if (seen.isEmpty())
            return;
        fill.part = partOf(fill.area, seen.translated(-nearest.topLeft()), slidePixels.size());
    }
    const FilledImage filled = media ? caches.images.filling(*media, fill) : FilledImage();
    if (filled.image.isNull())
        return paintPlaceholder(painter, box);
    painter.save();
    if (isPixelByPixel)
        useDevicePixels(painter);
    painter.drawImage(filled.placeIn(isPixelByPixel ? QRectF(nearest) : box, fill), filled.image);
    painter.restore();
}

} // namespace quenara
