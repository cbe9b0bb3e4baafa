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

PlacedScreen DisplayPlacement::screenByCommand() const
{
    const QList<PlacedScreen> screens = m_screens.screens();
    const QList<QRect> frames = framesOf(screens);
    const auto main = indexOf(screens, mainScreen());
    const QRect frame = displayFrame(frames, main ? std::optional(frames.at(*main)) : std::nullopt);
    // Of two screens that show the same, the later one is not the operator's.
    return screens.value(frames.lastIndexOf(frame), {nullptr, frame});
}

std::optional<PlacedScreen> DisplayPlacement::screenToFollow(const QScreen *current) const
{
    const QList<PlacedScreen> screens = m_screens.screens();
    const QList<QRect> frames = framesOf(screens);
    return screenAt(screens,
                    quenara::screenToFollow(frames, indexOf(screens, current), operatorScreen()));
}

std::optional<PlacedScreen> DisplayPlacement::freeScreen() const
{
    const QList<PlacedScreen> screens = m_screens.screens();
    const QList<QRect> frames = framesOf(screens);
    return screenAt(screens, quenara::freeScreen(frames, operatorScreen()));
}

void DisplayPlacement::cover(QWidget &window, const PlacedScreen &target) const
{
    if (target.screen) {
        const bool isUnmanaged = goesUnmanaged(target.frame);
        window.setWindowFlag(Qt::BypassWindowManagerHint, isUnmanaged);
        // The full-screen state keeps panels of the desktop below, and is the only way to choose a
        // screen where windows cannot place themselves. showFullScreen() would take the keyboard.
        window.setWindowState(isUnmanaged ? Qt::WindowNoState : Qt::WindowFullScreen);
        window.setScreen(target.screen);
    }
    window.setGeometry(target.frame);
    window.show();
}

bool DisplayPlacement::move(QWidget &window, const PlacedScreen &target) const
{
    // Window managers neither move a window that covers a screen nor let go of one in time.
    const bool isOnScreen = window.screen() == target.screen || window.geometry() == target.frame;
    const bool isManaged = !window.windowFlags().testFlag(Qt::BypassWindowManagerHint);
    if (!isOnScreen || (isManaged && goesUnmanaged(target.frame)))
        return false;
    window.setGeometry(target.frame);
    return true;
}

bool DisplayPlacement::coversOperator(const QWidget &window) const
{
    return window.geometry().intersects(operatorScreen());
}

QRect DisplayPlacement::operatorScreen() const
{
    const QList<PlacedScreen> screens = m_screens.screens();
    const auto under = m_operatorWindow ? screenUnder(screens, *m_operatorWindow) : std::nullopt;
    return under ? screens.at(*under).frame : QRect();
}

/// Whether a display over \a frame does without a window manager. When a screen goes, window
/// managers move its windows to one that stays before the program hears of it: the display would
/// lie over what the operator sees.
bool DisplayPlacement::goesUnmanaged(const QRect &frame) const
{
    const QList<PlacedScreen> screens = m_screens.screens();
    return m_screens.isX11() && isApart(frame, framesOf(screens), operatorScreen());
}

} // namespace quenara
