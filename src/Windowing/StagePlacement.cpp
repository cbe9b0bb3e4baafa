#include "StagePlacement.h"

#include "DisplayPlacement.h"

#include <QEvent>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace quenara {

StagePlacement::StagePlacement(const DisplayPlacement &displays, QObject *parent)
    : QObject(parent), m_displays(displays)
{
    m_settled.setSingleShot(true);
    m_settled.setInterval(screensSettleIn);
    connect(&m_settled, &QTimer::timeout, this, &StagePlacement::remember);
}

void StagePlacement::follow(QWidget &window)
{
    m_window = &window;
    window.installEventFilter(this);
    m_settled.start();
}

void StagePlacement::awaitSettling()
{
    m_settled.start();
}

bool StagePlacement::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowStateChange:
        m_settled.start();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void StagePlacement::remember()
{
    if (!m_window || !m_window->isVisible() || m_window->isMinimized())
        return;
    m_place.reset();
    const auto screen = m_displays.screenOf(*m_window);
    if (!screen || screen->frame.intersects(m_displays.operatorScreen()))
        return;
    m_state = m_window->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen);
    if (!m_state)
        m_frame = m_window->windowHandle()->frameMargins();
    const QRect normal = m_state ? m_window->normalGeometry() : m_window->geometry();
    m_place = {.screen = screen->screen->name(),
               .corner = normal.topLeft() - QPoint(m_frame.left(), m_frame.top())
                   - screen->frame.topLeft(),
               .size = normal.size(),
               .frame = m_frame};
}

/// The place of the window's own screen among those that there are.
std::optional<qsizetype> StagePlacement::screenIndex() const
{
    const QList<PlacedScreen> screens = m_displays.screens();
    const auto found =
        std::find_if(screens.cbegin(), screens.cend(), [this](const PlacedScreen &placed) {
            return m_place && placed.screen->name() == m_place->screen;
        });
    return found == screens.cend() ? std::nullopt : std::optional(found - screens.cbegin());
}

bool StagePlacement::hasLostScreen() const
{
    return m_place && !canReturn(nullptr);
}

bool StagePlacement::canReturn(const QWidget *display) const
{
    const auto index = screenIndex();
    if (!index)
        return false;
    const QRect frame = m_displays.screens().at(*index).frame;
    return !frame.intersects(m_displays.operatorScreen())
        && !(display && frame.intersects(display->geometry()));
}

void StagePlacement::restore(QWidget &window) const
{
    const auto index = screenIndex();
    if (!index)
        return;
    const PlacedScreen screen = m_displays.screens().at(*index);
    const WindowPlace fitting = broughtWithin({QPoint(), screen.frame.size()}, *m_place);
    window.setScreen(screen.screen);
    window.resize(fitting.size);
    window.move(screen.frame.topLeft() + fitting.corner);
    window.setWindowState(m_state);
}

} // namespace quenara
