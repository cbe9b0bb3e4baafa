#include "FocusRing.h"

#include "ThemeColors.h"
#include "Typing.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFocusEvent>
#include <QFocusFrame>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>

#include <algorithm>
#include <utility>

namespace quenara {

namespace {

constexpr auto areaProperty = "focusArea";
constexpr double ringRadius = 8;

/// Qt tells assistive technologies nothing of a focus frame.
class RingFrame : public QFocusFrame
{
public:
    using QFocusFrame::QFocusFrame;

    /// Covers the ring alone, so that what it lies around is painted as ever.
    void cover(const QRect &frame)
    {
        setGeometry(frame);
        const QRegion inside(
            rect().adjusted(focusRingWidth, focusRingWidth, -focusRingWidth, -focusRingWidth));
        setMask(QRegion(rect()) - inside + cornersOf(rect()));
        raise();
        show();
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        paintFocusRing(painter, rect(), themeOf(*this));
    }

private:
    /// What the round inner corners of the ring reach into.
    static QRegion cornersOf(const QRect &frame)
    {
        constexpr int size = int(ringRadius);
        QRegion corners;
        for (const QPoint &corner : {frame.topLeft(), frame.topRight() - QPoint(size - 1, 0),
                                     frame.bottomLeft() - QPoint(0, size - 1),
                                     frame.bottomRight() - QPoint(size - 1, size - 1)})
            corners += QRect(corner, QSize(size, size));
        return corners;
    }
};

/// The part of its window in which \a widget can be seen.
QRect roomOf(const QWidget &widget)
{
    const QWidget *window = widget.window();
    QRect room = window->rect();
    for (const QWidget *around = &widget; around && around != window;
         around = around->parentWidget()) {
        const auto *scroll = qobject_cast<const QAbstractScrollArea *>(around->parentWidget());
        if (scroll && scroll->viewport() == around)
            room &= QRect(around->mapTo(window, QPoint()), around->size());
    }
    return room;
}

/// Scrolls what \a widget lies in. Qt does so only for a Tab that does not come from beside it.
void bringIntoSight(QWidget &widget)
{
    for (QWidget *around = widget.parentWidget(); around; around = around->parentWidget()) {
        if (auto *area = qobject_cast<QScrollArea *>(around))
            area->ensureWidgetVisible(&widget);
    }
}

bool isTab(const QEvent &event)
{
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

} // namespace

void paintFocusRing(QPainter &painter, const QRectF &frame, const ZelvoTheme &theme)
{
    const double inset = focusLineWidth / 2 + focusLineEdge;
    const QRectF line = frame.adjusted(inset, inset, -inset, -inset);
    // Even around something thin there is a straight piece on each side.
    const double radius = std::min(ringRadius - inset, std::min(line.width(), line.height()) / 4);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(theme.inputBackground, focusRingWidth));
    painter.drawRoundedRect(line, radius, radius);
    painter.setPen(QPen(theme.accent, focusLineWidth));
    painter.drawRoundedRect(line, radius, radius);
}

void setFocusArea(QWidget &widget, const QRect &area)
{
    widget.setProperty(areaProperty, area.isEmpty() ? QVariant() : QVariant(area));
}

FocusRing::~FocusRing()
{
    delete m_frame;
}

bool FocusRing::eventFilter(QObject *watched, QEvent *event)
{
    auto *widget = qobject_cast<QWidget *>(watched);
    if (!widget || widget == m_frame)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_isByKeyboard = false;
        break;
    case QEvent::KeyPress:
        // Tab may also move on within what has the focus already.
        if (isTab(*event))
            comeByKeyboard(QApplication::focusWidget());
        break;
    case QEvent::FocusIn:
        comeTo(*widget, static_cast<const QFocusEvent *>(event)->reason());
        break;
    case QEvent::FocusOut:
        m_last = std::exchange(m_widget, nullptr);
        place();
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::DynamicPropertyChange:
        if (m_widget && (widget == m_widget || widget->isAncestorOf(m_widget)))
            place();
        break;
    default:
        break;
    }
    return false;
}

void FocusRing::comeTo(QWidget &widget, Qt::FocusReason reason)
{
    m_widget = isWanted(widget, reason) ? &widget : nullptr;
    if (m_widget && (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason))
        bringIntoSight(widget);
    place();
}

void FocusRing::comeByKeyboard(QWidget *focused)
{
    m_isByKeyboard = true;
    if (focused && isWanted(*focused, Qt::TabFocusReason)) {
        m_widget = focused;
        place();
    }
}

bool FocusRing::isWanted(const QWidget &widget, Qt::FocusReason reason) const
{
    if (!(widget.focusPolicy() & Qt::TabFocus) || widget.isWindow()
        || widget.window()->windowType() == Qt::Popup)
        return false;
    switch (reason) {
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
        return true;
    case Qt::MouseFocusReason:
        return takesText(&widget);
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
        return takesText(&widget) || m_isByKeyboard || m_last == &widget;
    default:
        return takesText(&widget) || m_isByKeyboard;
    }
}

void FocusRing::place()
{
    if (!m_widget || !m_widget->isVisible()) {
        if (m_frame)
            m_frame->hide();
        return;
    }
    QWidget *window = m_widget->window();
    if (!m_frame) {
        m_frame = new RingFrame(window);
    } else if (m_frame->parentWidget() != window) {
        m_frame->setParent(window);
    }
    const QVariant own = m_widget->property(areaProperty);
    const QRect area = own.isValid() ? own.toRect() : m_widget->rect();
    const QRect frame =
        area.translated(m_widget->mapTo(window, QPoint()))
            .adjusted(-focusRingDistance, -focusRingDistance, focusRingDistance, focusRingDistance)
        & roomOf(*m_widget);
    static_cast<RingFrame &>(*m_frame).cover(frame);
}

} // namespace quenara
