#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>

class QPainter;
class QWidget;

namespace quenara {

struct ZelvoTheme;

/// The ring around what has the keyboard, in points: a line in the accent colour between two finer
/// ones, from which it stands out by 3:1 or more wherever it lies.
constexpr double focusLineWidth = 2;
constexpr double focusLineEdge = 1;
constexpr int focusRingWidth = int(focusLineWidth + 2 * focusLineEdge);
/// How far the ring reaches beyond what it lies around: its inner edge covers the line that many
/// controls have around them, so that no two lines stand side by side.
constexpr int focusRingDistance = focusRingWidth - int(focusLineEdge);

/// Paints the ring within \a frame.
void paintFocusRing(QPainter &painter, const QRectF &frame, const ZelvoTheme &theme);

/// Has the ring lie around \a area of \a widget, in its points, rather than around all of it;
/// around all of it again for an empty area.
void setFocusArea(QWidget &widget, const QRect &area);

/// Lays the ring around whatever has the keyboard, in every window of the program, so that no
/// control paints one itself. What is typed into always has it, all else once the keyboard was used
/// to come there: a click leaves the keyboard to the show. What cannot be reached by the Tab key
/// never has it. What Tab comes to is scrolled into sight.
///
/// To be installed as an event filter on the application.
class FocusRing : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~FocusRing() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isWanted(const QWidget &widget, Qt::FocusReason reason) const;
    void comeTo(QWidget &widget, Qt::FocusReason reason);
    void comeByKeyboard(QWidget *focused);
    void place();

    QPointer<QWidget> m_widget; ///< which the ring is around; null while there is none
    QPointer<QWidget> m_last; ///< which it was around before its window lost the keyboard
    QPointer<QWidget> m_frame; ///< a widget, since its destructor still has events filtered
    bool m_isByKeyboard = true; ///< false once the mouse was pressed, until Tab is
};

} // namespace quenara
