#include "RoundedShapes.h"

#include "DevicePixels.h"
#include "PaintingWorkarounds.h"

#include <QRegion>

#include <algorithm>
#include <cmath>

namespace quenara {

namespace {

/// How far a corner reaches along the edges, for a radius of one.
constexpr double continuousReach = 1.53;

double halfOf(const QRectF &rect)
{
    return std::max(0.0, std::min(rect.width(), rect.height()) / 2);
}

double reachOf(const QRectF &rect, double radius)
{
    return std::clamp(continuousReach * radius, 0.0, halfOf(rect));
}

/// The whole pixels of the device between the upper and the lower corners.
QRect core(const QPainter &painter, const QRectF &rect, double radius)
{
    const double reach = reachOf(rect, radius);
    const QTransform &transform = painter.deviceTransform();
    if (transform.type() > QTransform::TxScale)
        return {};
    // Without the pixels that an edge runs through.
    const QRectF between = rect.adjusted(0, reach, 0, -reach);
    const QRect touched = visiblePixels(painter, between);
    const QRectF mapped = transform.mapRect(between);
    return touched.adjusted(mapped.left() > touched.left() ? 1 : 0,
                            mapped.top() > touched.top() ? 1 : 0,
                            mapped.right() < touched.right() + 1 ? -1 : 0,
                            mapped.bottom() < touched.bottom() + 1 ? -1 : 0);
}

} // namespace

QPainterPath continuousRoundedRect(const QRectF &rect, double radius)
{
    QPainterPath path;
    const double half = halfOf(rect);
    const double r = std::clamp(radius, 0.0, half);
    if (r == 0) {
        path.addRect(rect);
        return path;
    }
    // Each corner is one cubic, from reach before it to reach after it. The handle puts the middle
    // of the curve on the circle, r * (1 - sqrt(1/2)) from both edges.
    const double reach = reachOf(rect, r);
    const double handle = (4 * reach - 8 * r * (1 - std::sqrt(0.5))) / 3;
    const double control = reach - handle;

    const double left = rect.left();
    const double right = rect.right();
    const double top = rect.top();
    const double bottom = rect.bottom();
    path.moveTo(left + reach, top);
    path.lineTo(right - reach, top);
    path.cubicTo(right - control, top, right, top + control, right, top + reach);
    path.lineTo(right, bottom - reach);
    path.cubicTo(right, bottom - control, right - control, bottom, right - reach, bottom);
    path.lineTo(left + reach, bottom);
    path.cubicTo(left + control, bottom, left, bottom - control, left, bottom - reach);
    path.lineTo(left, top + reach);
    path.cubicTo(left, top + control, left + control, top, left + reach, top);
    path.closeSubpath();
    return path;
}

void fillRoundedRect(QPainter &painter, const QRectF &rect, double radius, const QColor &color)
{
    const QPainterPath path = continuousRoundedRect(rect, radius);
    const QRect middle = core(painter, rect, radius);
    if (middle.isEmpty()) {
        fillInBands(painter, path, color);
        return;
    }
    painter.save();
    useDevicePixels(painter);
    paintInBands(painter, middle, 1, [&] { painter.fillRect(middle, color); });
    painter.restore();
    for (const QRect &part : QRegion(visiblePixels(painter, rect)) - middle) {
        painter.save();
        clipToPixels(painter, part);
        fillInBands(painter, path, color);
        painter.restore();
    }
}

} // namespace quenara
