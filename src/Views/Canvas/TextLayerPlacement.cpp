#include "TextLayerPlacement.h"

#include <algorithm>
#include <cmath>

namespace quenara {

namespace {

constexpr double leastPadding = 4; // points

/// \a degrees without whole turns, so that rotating by many of them stays precise.
double withinOneTurn(double degrees)
{
    return std::fmod(degrees, 360);
}

} // namespace

bool TextLayerPlacement::isTurned() const
{
    return withinOneTurn(rotation) != 0;
}

QRectF TextLayerPlacement::box() const
{
    return {slideTopLeft + QPointF(frame.x, frame.y) * scale,
            QSizeF(frame.width, frame.height) * scale};
}

QRectF TextLayerPlacement::plate() const
{
    const double around = std::max(0.0, leastPadding - padding * scale);
    QRectF plate = box().adjusted(-around, -around, around, around);
    plate.setSize(plate.size().expandedTo({2 * leastPadding, 2 * leastPadding}));
    return plate;
}

QPolygonF TextLayerPlacement::outline(double margin) const
{
    const QRectF unturned = plate().adjusted(-margin, -margin, margin, margin);
    const QPointF middle = unturned.center();
    QTransform turn;
    turn.translate(middle.x(), middle.y());
    turn.rotate(withinOneTurn(rotation));
    turn.translate(-middle.x(), -middle.y());
    return turn.map(unturned);
}

QTransform TextLayerPlacement::fromBox() const
{
    const QRectF area = box();
    QTransform transform;
    transform.translate(area.center().x(), area.center().y());
    transform.rotate(withinOneTurn(rotation));
    transform.translate(-area.width() / 2, -area.height() / 2);
    return transform;
}

} // namespace quenara
