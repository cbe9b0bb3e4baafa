#include "LayerDrag.h"

#include <cmath>

namespace quenara {

namespace {

// Points
constexpr double moveDistance = 2; ///< of the pointer before a press becomes a drag
constexpr double resizeDistance = 1;

} // namespace

void LayerDrag::press(const std::optional<Press> &press)
{
    end();
    m_press = press;
    if (press)
        m_store.selectElement(press->layerID);
}

void LayerDrag::moveTo(const QPointF &point, const SlideElement &layer, const CanvasSize &canvas,
                       double scale)
{
    const QPointF travel = point - m_press->point;
    const bool isMove = m_press->grip == Grip::layer;
    if (!isDragging()) {
        if (std::hypot(travel.x(), travel.y()) < (isMove ? moveDistance : resizeDistance))
            return;
        m_start = layer.frame;
        m_gesture = m_store.beginGesture();
    }
    const QPointF translation = travel / scale;
    m_snap = isMove ? applyCenterSnap(m_start->offsetBy(translation.x(), translation.y()), canvas)
                    : CenterSnap{.frame = resizedWithin(*m_start, translation, canvas)};
    m_store.updateSelectedElement([this](SlideElement &element) { element.frame = m_snap.frame; });
}

void LayerDrag::end()
{
    m_press.reset();
    m_start.reset();
    m_snap = {};
    m_store.endGesture(m_gesture);
}

void LayerDrag::cancel()
{
    m_store.cancelGesture(m_gesture);
    end();
}

bool LayerDrag::isOf(const SlideElement *selected) const
{
    return m_press && selected && selected->id == m_press->layerID
        && (!isDragging() || m_store.isGestureOpen(m_gesture));
}

} // namespace quenara
