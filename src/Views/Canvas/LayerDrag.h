#pragma once

#include "PointerGeometry.h"
#include "WorkspaceStore.h"

#include <optional>

namespace quenara {

/// The mouse button pressed on the design canvas and the drag that comes of it once the pointer has
/// moved far enough: one undo step that moves a layer or, by its handle, resizes it.
class LayerDrag
{
public:
    enum class Grip { layer, handle };

    /// What the button was pressed on.
    struct Press
    {
        Grip grip;
        QString layerID;
        QPointF point; ///< points of the canvas's widget
    };

    explicit LayerDrag(WorkspaceStore &store) : m_store(store) {}

    /// Begins, and selects the layer that was pressed; nothing, if that was no layer.
    void press(const std::optional<Press> &press);

    /// Follows the pointer to \a point while isOf() \a layer, on a \a canvas of which \a scale
    /// points are one unit.
    void moveTo(const QPointF &point, const SlideElement &layer, const CanvasSize &canvas,
                double scale);

    /// Leaves the layer where it is.
    void end();
    /// Puts the layer back where it was.
    void cancel();

    bool isPressed() const { return m_press.has_value(); }
    /// Whether the pointer has moved far enough.
    bool isDragging() const { return m_start.has_value(); }
    /// Whether the drag can go on while \a selected is the selected layer: another one may have
    /// been selected meanwhile, or the drag undone.
    [[nodiscard]] bool isOf(const SlideElement *selected) const;

    bool showVerticalCenterGuide() const { return m_snap.showVerticalCenterGuide; }
    bool showHorizontalCenterGuide() const { return m_snap.showHorizontalCenterGuide; }

private:
    WorkspaceStore &m_store;
    std::optional<Press> m_press;
    std::optional<CanvasFrame> m_start; ///< of the layer, before it was dragged
    GestureID m_gesture{};
    CenterSnap m_snap{};
};

} // namespace quenara
