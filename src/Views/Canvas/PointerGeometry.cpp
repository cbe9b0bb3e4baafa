#include "PointerGeometry.h"

#include "SlideRendererView.h"

#include <algorithm>
#include <cmath>

namespace quenara {

namespace {

constexpr double slideMargin = 24; // points, on every side at least
constexpr double snapDistance = 18; // canvas units
constexpr double handleSize = 12; // points

/// QRectF::contains() would count a frame of negative size as one of positive size.
bool contains(const CanvasFrame &frame, const QPointF &point)
{
    return point.x() >= frame.x && point.x() < frame.x + frame.width && point.y() >= frame.y
        && point.y() < frame.y + frame.height;
}

} // namespace

QRectF fittedCanvasRect(const QSizeF &size, const CanvasSize &canvas)
{
    if (size.isEmpty() || !(canvas.width > 0) || !(canvas.height > 0))
        return {};
    const QSizeF room(std::max(0.0, size.width() - 2 * slideMargin),
                      std::max(0.0, size.height() - 2 * slideMargin));
    QRectF rect = SlideRendererView::fittedRect(room, canvas.width / canvas.height);
    rect.moveCenter({size.width() / 2, size.height() / 2});
    return rect;
}

const SlideElement *layerAt(const SlideDesign &design, const QPointF &point)
{
    const SlideElement *topmost = nullptr;
    for (const SlideElement &element : design.elements) {
        const bool isAbove = !topmost || element.zIndex >= topmost->zIndex;
        if (isAbove && contains(element.frame, point))
            topmost = &element;
    }
    return topmost;
}

CenterSnap applyCenterSnap(const CanvasFrame &frame, const CanvasSize &canvas)
{
    CenterSnap snap{.frame = frame};
    if (std::abs(frame.midX() - canvas.width / 2) < snapDistance) {
        snap.frame.x = canvas.width / 2 - frame.width / 2;
        snap.showVerticalCenterGuide = true;
    }
    if (std::abs(frame.midY() - canvas.height / 2) < snapDistance) {
        snap.frame.y = canvas.height / 2 - frame.height / 2;
        snap.showHorizontalCenterGuide = true;
    }
    return snap;
}

CanvasFrame resizedWithin(const CanvasFrame &start, const QPointF &translation,
                          const CanvasSize &canvas)
{
    CanvasFrame frame = start.resizedBy(translation.x(), translation.y());
    frame.width = std::min(frame.width, canvas.width - start.x);
    frame.height = std::min(frame.height, canvas.height - start.y);
    return frame;
}

QRectF resizeHandle(const QRectF &box)
{
    QRectF handle(0, 0, handleSize, handleSize);
    handle.moveCenter(box.bottomRight());
    return handle;
}

} // namespace quenara
