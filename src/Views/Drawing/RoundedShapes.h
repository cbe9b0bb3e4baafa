#pragma once

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>

namespace quenara {

/// A rectangle with continuous corners: the curvature grows smoothly from the straight edges and
/// the corner's middle lies where a circle of \a radius has it. A radius larger than the half of
/// the shorter side is cut to that.
QPainterPath continuousRoundedRect(const QRectF &rect, double radius);

/// QPainter::fillPath() of that, faster: what lies between the corners is filled as a rectangle,
/// and the rest in bands.
void fillRoundedRect(QPainter &painter, const QRectF &rect, double radius, const QColor &color);

} // namespace quenara
