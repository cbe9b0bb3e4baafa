#pragma once

#include "ProjectModels.h"

#include <QEvent>
#include <QPointF>
#include <QWidget>

#include <functional>

namespace quenara {
class SlideCanvas;
class WorkspaceStore;
} // namespace quenara

namespace quenara::bench {

/// A verse of two lines on the catalogue's template for lyrics.
[[nodiscard]] Slide lyricSlide();

/// Does to the selected layer what an operator does by mouse and keys on a canvas.
class CanvasHand
{
public:
    /// The canvas is the one in \a window. \a repaint returns once everything that a step has
    /// changed is painted.
    CanvasHand(WorkspaceStore &store, const QWidget &window, std::function<void()> repaint);

    void beginDrag() { grasp(QEvent::MouseButtonPress); }
    void endDrag() { mouse(QEvent::MouseButtonRelease, m_middle); }
    void beginTyping() { grasp(QEvent::MouseButtonDblClick); }

    /// Moves the layer one step along a circle, so that no two steps leave it in one place.
    void drag();
    /// Types a letter, every twentieth time a line break. Every hundredth step undoes the typing,
    /// so that the text stays short.
    void type();

private:
    void grasp(QEvent::Type type);
    void mouse(QEvent::Type type, const QPointF &point);

    WorkspaceStore &m_store;
    SlideCanvas *m_canvas;
    std::function<void()> m_repaint;
    QPointF m_middle; ///< of the layer, when the drag began
    int m_stepNumber = 0;
};

} // namespace quenara::bench
