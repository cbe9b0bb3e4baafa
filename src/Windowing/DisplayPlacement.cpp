#include "DisplayPlacement.h"

#include "ScreenChoice.h"

#include <QApplication>
#include <QScreen>

#include <algorithm>

namespace quenara {

namespace {

/// The screen with the window that has the focus, else the primary one; null without screens.
QScreen *mainScreen()
{
    const QWidget *active = QApplication::activeWindow();
    return active ? active->screen() : QGuiApplication::primaryScreen();
}

std::optional<qsizetype> indexOf(const QList<PlacedScreen> &screens, const QScreen *screen)
{
    const auto found =
        std::find_if(screens.cbegin(), screens.cend(),
                     [&](const PlacedScreen &placed) { return placed.screen == screen; });
    return found == screens.cend() ? std::nullopt : std::optional(found - screens.cbegin());
}

std::optional<PlacedScreen> screenAt(const QList<PlacedScreen> &screens,
                                     std::optional<qsizetype> index)
{
    return index ? std::optional(screens.at(*index)) : std::nullopt;
}

} // namespace

DisplayPlacement::DisplayPlacement(QObject *parent) : QObject(parent)
{
    connect(&m_screens, &ScreenWatch::changed, this, &DisplayPlacement::screensChanged);
}

QList<PlacedScreen> DisplayPlacement::screens() const
{
    QList<PlacedScreen> screens = m_screens.screens();
    if (!m_screens.areWindowsPlaced() && m_operatorWindow) {
        if (const auto first = m_screens.indexUnder(*m_operatorWindow))
            screens.move(*first, 0);
    }
    return screens;
}

std::optional<PlacedScreen> DisplayPlacement::screenOf(const QWidget &window) const
{
    return screenAt(m_screens.screens(), m_screens.indexUnder(window));
}

PlacedScreen DisplayPlacement::screenByCommand() const
{
    const QList<PlacedScreen> screens = this->screens();
    const QList<QRect> frames = framesOf(screens);
    const auto main = indexOf(screens, mainScreen());
    const QRect frame = displayFrame(frames, main ? std::optional(frames.at(*main)) : std::nullopt);
    // Of two screens that show the same, the later one is not the operator's.
    return screens.value(frames.lastIndexOf(frame), {nullptr, frame});
}

std::optional<PlacedScreen> DisplayPlacement::screenToFollow(const QScreen *current) const
{
    const QList<PlacedScreen> screens = this->screens();
    const QList<QRect> frames = framesOf(screens);
    return screenAt(screens,
                    quenara::screenToFollow(frames, indexOf(screens, current), operatorScreen()));
}

std::optional<PlacedScreen> DisplayPlacement::freeScreen() const
{
    const QList<PlacedScreen> screens = this->screens();
    const QList<QRect> frames = framesOf(screens);
    return screenAt(screens, quenara::freeScreen(frames, operatorScreen()));
}

void DisplayPlacement::cover(QWidget &window, const PlacedScreen &target) const
{
    if (target.screen) {
        const bool isUnmanaged = goesUnmanaged(target.frame);
        window.setWindowFlag(Qt::BypassWindowManagerHint, isUnmanaged);
        // The screen first: what the window is painted on takes its resolution.
        window.setScreen(target.screen);
        window.setGeometry(target.frame);
        // The full-screen state keeps panels of the desktop below, and is the only way to choose a
        // screen where windows cannot place themselves. showFullScreen() would take the keyboard.
        window.setWindowState(isUnmanaged ? Qt::WindowNoState : Qt::WindowFullScreen);
    } else {
        window.setGeometry(target.frame);
    }
    window.show();
}

bool DisplayPlacement::move(QWidget &window, const PlacedScreen &target) const
{
    // Window managers neither move a window that covers a screen nor let go of one in time.
    const bool isOnScreen = window.screen() == target.screen
        || (m_screens.areWindowsPlaced() && window.geometry() == target.frame);
    const bool isManaged = !window.windowFlags().testFlag(Qt::BypassWindowManagerHint);
    if (!isOnScreen || !window.isVisible() || (isManaged && goesUnmanaged(target.frame)))
        return false;
    window.setGeometry(target.frame);
    return true;
}

bool DisplayPlacement::coversOperator(const QWidget &window) const
{
    return liesOn(window, operatorScreen());
}

bool DisplayPlacement::sharesScreen(const QWidget &window, const QWidget &other) const
{
    const auto screen = screenOf(other);
    return screen && liesOn(window, screen->frame);
}

/// Whether \a window lies on the screen with that frame.
bool DisplayPlacement::liesOn(const QWidget &window, const QRect &frame) const
{
    if (m_screens.areWindowsPlaced())
        return window.geometry().intersects(frame);
    const auto screen = screenOf(window);
    return screen && screen->frame.intersects(frame);
}

bool DisplayPlacement::isAstray(const QWidget &window, const QScreen *screen) const
{
    return !m_screens.areWindowsPlaced() && window.screen() != screen;
}

QRect DisplayPlacement::operatorScreen() const
{
    const auto screen = m_operatorWindow ? screenOf(*m_operatorWindow) : std::nullopt;
    return screen ? screen->frame : QRect();
}

/// Whether a display over \a frame does without a window manager. When a screen goes, window
/// managers move its windows to one that stays before the program hears of it: the display would
/// lie over what the operator sees.
bool DisplayPlacement::goesUnmanaged(const QRect &frame) const
{
    return m_screens.canGoUnmanaged() && isApart(frame, framesOf(screens()), operatorScreen());
}

} // namespace quenara
