#pragma once

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>
#include <QWindow>

#include <utility>

namespace quenara::test {

/// Something that another program drags over a window, which has to be shown, as the desktop tells
/// the window of it. Gone from there at the end.
class Drag
{
public:
    explicit Drag(const QWidget &window) : m_window(window) {}
    ~Drag() { leave(); }

    Drag(const Drag &) = delete;
    Drag &operator=(const Drag &) = delete;

    QMimeData data;
    Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;

    /// Comes over the middle of \a widget. Whether it would be taken there.
    bool over(const QWidget &widget) { return over(widget, widget.rect().center()); }

    bool over(const QWidget &widget, const QPoint &point)
    {
        leave();
        m_point = widget.mapTo(&m_window, point);
        QDragEnterEvent enter(m_point, actions, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window.windowHandle(), &enter);
        m_isOver = true;
        return enter.isAccepted() && enter.dropAction() == Qt::CopyAction;
    }

    /// Drops it where it came last.
    void drop()
    {
        QDropEvent drop(m_point, actions, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window.windowHandle(), &drop);
        m_isOver = false;
    }

private:
    void leave()
    {
        if (!std::exchange(m_isOver, false))
            return;
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(m_window.windowHandle(), &leave);
    }

    const QWidget &m_window;
    QPoint m_point;
    bool m_isOver = false;
};

} // namespace quenara::test
