#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>

#include <cstdint>
#include <functional>

class QDropEvent;
class QMimeData;
class QWidget;

namespace quenara {

/// Has a widget take what is dropped on it, as a copy, and marks it while it would. A widget around
/// it may take what it refuses; where none does, the pointer says so. While another window's dialog
/// is open, nothing is taken.
class DropTarget : public QObject
{
    Q_OBJECT

public:
    struct Use
    {
        /// Whether it is taken, asked once when the pointer comes. It must not wait for anything.
        std::function<bool(const QMimeData &data)> accepts;
        /// Takes it at a point of the widget.
        std::function<void(const QMimeData &data, const QPointF &point)> take;
        /// How far the mark reaches beyond the widget, on what is around it, in points.
        int markOutset = 0;
    };

    /// With everything within the widget, its text fields, too, leave to it what it accepts.
    enum class Reach : std::uint8_t { widget, everythingWithin };

    /// Belongs to \a widget.
    DropTarget(QWidget &widget, Use use, Reach reach = Reach::widget);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool accepts(const QDropEvent &drop) const;
    void setAccepting(bool isAccepting);
    bool isWithin(const QObject *watched) const;

    QWidget &m_widget;
    Use m_use;
    Reach m_reach;
    bool m_isAccepting = false;
    QPointer<QWidget> m_mark; ///< there while the pointer is over the widget with what it takes
};

} // namespace quenara
