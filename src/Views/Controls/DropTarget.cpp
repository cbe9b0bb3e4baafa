#include "DropTarget.h"

#include "ThemeColors.h"

#include <QApplication>
#include <QDropEvent>
#include <QPainter>
#include <QWidget>

#include <utility>

namespace quenara {

namespace {

/// A frame in the accent colour, within the edges of what it lies on unless it reaches beyond.
class DropMark : public QWidget
{
public:
    DropMark(QWidget &marked, int outset)
        : QWidget(outset > 0 ? marked.parentWidget() : &marked), m_inset(outset > 0 ? 1 : 3)
    {
        setObjectName(QStringLiteral("dropMark"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setGeometry(outset > 0 ? marked.geometry().adjusted(-outset, 0, outset, 0) : marked.rect());
        raise();
        show();
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        constexpr double width = 2;
        constexpr double radius = 8;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(themeOf(*this).accent, width));
        painter.drawRoundedRect(QRectF(rect()).adjusted(m_inset, m_inset, -m_inset, -m_inset),
                                radius, radius);
    }

private:
    double m_inset; ///< of the frame's middle, in points
};

} // namespace

DropTarget::DropTarget(QWidget &widget, Use use, Reach reach)
    : QObject(&widget), m_widget(widget), m_use(std::move(use)), m_reach(reach)
{
    widget.setAcceptDrops(true);
    if (reach == Reach::everythingWithin) {
        qApp->installEventFilter(this);
    } else {
        widget.installEventFilter(this);
    }
}

bool DropTarget::accepts(const QDropEvent &drop) const
{
    const QWidget *dialog = QApplication::activeModalWidget();
    return drop.possibleActions().testFlag(Qt::CopyAction) && drop.mimeData()
        && (!dialog || dialog == m_widget.window()) && m_use.accepts(*drop.mimeData());
}

bool DropTarget::isWithin(const QObject *watched) const
{
    const auto *widget = qobject_cast<const QWidget *>(watched);
    return m_reach == Reach::everythingWithin && widget && m_widget.isAncestorOf(widget);
}

void DropTarget::setAccepting(bool isAccepting)
{
    m_isAccepting = isAccepting;
    delete m_mark;
    if (isAccepting)
        m_mark = new DropMark(m_widget, m_use.markOutset);
}

bool DropTarget::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove
        && event->type() != QEvent::DragLeave && event->type() != QEvent::Drop)
        return false;
    if (watched != &m_widget) {
        // Refused by what lies within, it comes to the widget next.
        const bool isKept = event->type() == QEvent::DragEnter && isWithin(watched)
            && accepts(static_cast<const QDropEvent &>(*event));
        if (isKept)
            event->ignore();
        return isKept;
    }
    if (event->type() == QEvent::DragLeave) {
        setAccepting(false);
        return false;
    }
    auto &drop = static_cast<QDropEvent &>(*event);
    if (event->type() == QEvent::DragEnter)
        setAccepting(accepts(drop));
    if (!m_isAccepting)
        return false;
    // Never a move: the program that it comes from would delete it.
    drop.setDropAction(Qt::CopyAction);
    drop.accept();
    if (event->type() == QEvent::Drop) {
        setAccepting(false);
        m_use.take(*drop.mimeData(), drop.position());
    }
    return true;
}

} // namespace quenara
