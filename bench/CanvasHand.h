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

/// A song's verse on the catalogue's template for one.
Slide lyricSlide();

/// What an operator does on the canvas that stands in \a window, to the layer that is selected.
class CanvasHand
{
public:
    /// \a repaint returns once all that a step has changed is painted.
    CanvasHand(WorkspaceStore &store, const QWidget &window, std::function<void()> repaint);

    void beginDrag() { grasp(QEvent::MouseButtonPress); }
    void endDrag() { mouse(QEvent::MouseButtonRelease, m_middle); }
    void beginTyping() { grasp(QEvent::MouseButtonDblClick); }

    /// Round and round, so that every step is another place.
    void drag();
    /// A letter, now and then the next line; what becomes too long is undone.
    void type();

private:
    void grasp(QEvent::Type type);
    void mouse(QEvent::Type type, const QPointF &point);

    WorkspaceStore &m_store;
    SlideCanvas *m_canvas;
    std::function<void()> m_repaint;
    QPointF m_middle; ///< of the layer when it was grasped
    int m_stepNumber = 0;
};

} // namespace quenara::bench
