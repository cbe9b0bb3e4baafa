#include "RoundedShapes.h"

#include <algorithm>
#include <cmath>

namespace quenara {

QPainterPath continuousRoundedRect(const QRectF &rect, double radius)
{
    QPainterPath path;
    const double half = std::min(rect.width(), rect.height()) / 2;
    const double r = std::clamp(radius, 0.0, std::max(0.0, half));
    if (r == 0) {
        path.addRect(rect);
        return path;
    }
    // One cubic a corner, from reach before it to reach after it. Its handle is chosen so that the
    // middle of the curve lies on the circle's, r * (1 - sqrt(1/2)) from both edges.
    constexpr double continuousReach = 1.53;
    const double reach = std::min(continuousReach * r, half);
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

} // namespace quenara
