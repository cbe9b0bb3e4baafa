#include "CanvasHand.h"

#include "CanvasTextLayerEditor.h"
#include "ProjectTemplates.h"
#include "SlideCanvas.h"
#include "WorkspaceStore.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <cmath>
#include <utility>

namespace quenara::bench {

Slide lyricSlide()
{
    return ProjectTemplates::slide(QStringLiteral("Evening"),
                                   QStringLiteral("The river carries morning light\n"
                                                  "And every hill begins to sing"),
                                   0, QStringLiteral("lowerLyric"));
}

CanvasHand::CanvasHand(WorkspaceStore &store, const QWidget &window, std::function<void()> repaint)
    : m_store(store), m_canvas(window.findChild<SlideCanvas *>()), m_repaint(std::move(repaint))
{}

void CanvasHand::drag()
{
    const double angle = 0.3 * ++m_stepNumber;
    mouse(QEvent::MouseMove, m_middle + 90 * QPointF(std::cos(angle), std::sin(angle)));
    m_repaint();
}

void CanvasHand::type()
{
    const bool isBreak = ++m_stepNumber % 20 == 0;
    QKeyEvent key(QEvent::KeyPress, isBreak ? Qt::Key_Return : Qt::Key_A, Qt::NoModifier,
                  isBreak ? QStringLiteral("\r") : QStringLiteral("a"));
    QApplication::sendEvent(m_canvas->findChild<CanvasTextLayerEditor *>(), &key);
    if (m_stepNumber % 100 == 0)
        m_store.undo();
    m_repaint();
}

void CanvasHand::grasp(QEvent::Type type)
{
    const CanvasFrame frame = m_store.selectedElement()->frame;
    const QRectF slide = m_canvas->slideRect();
    m_middle =
        slide.topLeft() + QPointF(frame.midX(), frame.midY()) * slide.width() / CanvasSize().width;
    mouse(type, m_middle);
}

void CanvasHand::mouse(QEvent::Type type, const QPointF &point)
{
    QMouseEvent event(type, point, m_canvas->mapToGlobal(point), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(m_canvas, &event);
}

} // namespace quenara::bench
