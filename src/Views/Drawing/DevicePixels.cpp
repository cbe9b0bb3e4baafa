#include "DevicePixels.h"

#include <QPaintDevice>
#include <QPaintEngine>

#include <algorithm>
#include <cmath>
#include <limits>

namespace quenara {

namespace {

/// How much of a pixel is none: an edge meant for a whole number may miss it by its last bit.
constexpr double noise = 1.0 / 1024;

bool hasNumbersOnly(const QRectF &rect)
{
    return !std::isnan(rect.left() + rect.right() + rect.top() + rect.bottom());
}

} // namespace

QSize wholePixels(const QSizeF &size)
{
    const auto whole = [](double side) {
        constexpr double largest = std::numeric_limits<int>::max();
        return side > 0 ? int(std::round(std::min(side, largest))) : 0;
    };
    return {whole(size.width()), whole(size.height())};
}

QRect reachableRect(const QRectF &rect)
{
    if (!hasNumbersOnly(rect))
        return {};
    return rect.intersected(reachableArea).toAlignedRect();
}

QRectF visibleDeviceRect(const QPainter &painter)
{
    // The device of a widget's painter may be its window, with the widget anywhere on it.
    const QTransform toDevice = painter.worldTransform().inverted() * painter.deviceTransform();
    const QRectF whole =
        toDevice.mapRect(QRectF(0, 0, painter.device()->width(), painter.device()->height()));
    if (!painter.hasClipping())
        return whole;
    return whole.intersected(painter.deviceTransform().mapRect(painter.clipBoundingRect()));
}

QRect visiblePixels(const QPainter &painter, const QRectF &bounds, int margin)
{
    const QMarginsF around(margin, margin, margin, margin);
    const QRectF mapped = painter.deviceTransform().mapRect(bounds).marginsAdded(around);
    if (!hasNumbersOnly(mapped))
        return {};
    const QRectF seen = mapped.intersected(visibleDeviceRect(painter).marginsAdded(around));
    return seen.isEmpty() ? QRect() : seen.toAlignedRect();
}

QRectF touchedPixels(const QPainter &painter, const QRectF &rect)
{
    const QRectF mapped = painter.deviceTransform().mapRect(rect);
    const QRectF touched = mapped.adjusted(noise, noise, -noise, -noise);
    return reachableArea.contains(mapped) ? QRectF(touched.toAlignedRect()) : mapped;
}

void useDevicePixels(QPainter &painter)
{
    // From the identity: the inverse is then exact, and pixels stay where they are.
    painter.setWorldTransform({});
    painter.setWorldTransform(painter.deviceTransform().inverted());
}

void clipToPixels(QPainter &painter, const QRect &pixels)
{
    const QTransform transform = painter.worldTransform();
    useDevicePixels(painter);
    painter.setClipRect(pixels, Qt::IntersectClip);
    painter.setWorldTransform(transform);
}

bool isOnPage(const QPainter &painter)
{
    return painter.paintEngine()->type() == QPaintEngine::Pdf;
}

double deviceScale(const QPainter &painter)
{
    return std::sqrt(std::abs(painter.deviceTransform().determinant()));
}

} // namespace quenara
