#pragma once

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>

namespace quenara {

/// A rectangle with continuous corners: the curvature grows smoothly from the straight edges, and
/// the middle of a corner lies where that of a circle of \a radius would. The radius is at most
/// half the shorter side.
[[nodiscard]] QPainterPath continuousRoundedRect(const QRectF &rect, double radius);

/// Fills a continuousRoundedRect(), faster than QPainter::fillPath(): the part between the corners
/// as a rectangle, the rest in bands.
void fillRoundedRect(QPainter &painter, const QRectF &rect, double radius, const QColor &color);

} // namespace quenara
