#pragma once

#include <QBasicTimer>
#include <QModelIndex>
#include <QObject>
#include <QPixmap>
#include <QPoint>
#include <QRect>

#include <optional>

class QListView;
class QPainter;

namespace quenara {

class RundownModel;

/// The mouse button pressed on a row of the rundown and the drag that comes of it once the pointer
/// has moved far enough: a slide, or a section with its slides, lands where the line is when the
/// button is let go of, as one undo step. Until then nothing changes but what is painted. The
/// drag is the program's own, not the desktop's, so that the keys of the show go on working.
///
/// What ends it without a move: Escape, another button, a pointer beside the list, a dialog or a
/// menu that opens, a window that loses the keyboard, a row that is gone.
class RundownDrag : public QObject
{
    Q_OBJECT

public:
    /// \a list shows \a model and hands in what happens to the mouse, in points of its viewport.
    RundownDrag(RundownModel &model, QListView &list);

    /// Begins on the row at \a point, if there is one.
    void press(const QPoint &point);
    void moveTo(const QPoint &point);
    /// Ends, and moves the row to where the line is. Returns the moved row, an invalid index if
    /// there was no line.
    QModelIndex drop();
    /// Leaves the row where it is. The button may still be down.
    void cancel();
    /// The button is no longer down.
    void end();

    /// Whether the button is down on a row, be it dragged, not yet or no longer.
    bool isPressed() const { return m_stage != Stage::none; }
    bool isDragging() const { return m_stage == Stage::dragging; }
    /// Whether a drag was cancelled while the button is down.
    bool isCancelled() const { return m_stage == Stage::cancelled; }

    /// Follows rows that have come, gone, moved or been scrolled.
    void follow();

    /// Paints the dragged row and the line over the rows of the viewport.
    void paint(QPainter &painter) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void began();
    void ended();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    enum class Stage { none, pressed, dragging, cancelled };

    QModelIndex row() const;
    void begin();
    void showPlace();
    std::optional<int> gapAtPointer() const;
    int scrollStep() const;
    QRect pictureRect() const;
    QRect lineRect() const;
    QRect rowsRect() const;

    RundownModel &m_model;
    QListView &m_list;
    Stage m_stage = Stage::none;
    QString m_id; ///< of what the button was pressed on
    bool m_isSection = false;
    QPoint m_pressedAt;
    QPoint m_pointer;
    int m_grip = 0; ///< from the top of the row to the pointer, at the press
    QPixmap m_picture;
    QRect m_shownPicture; ///< where it was painted last
    std::optional<int> m_gap; ///< the row that it would land before
    QBasicTimer m_scrolling; ///< runs while the pointer is at an edge of the list
};

} // namespace quenara
