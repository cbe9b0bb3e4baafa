#include "WindowCoordinator.h"

#include "BringToFront.h"
#include "DisplayOutputView.h"
#include "InterfaceStyle.h"
#include "ScreenLayout.h"
#include "StageOutputView.h"
#include "SystemColorScheme.h"
#include "WorkspaceStore.h"

#include <QApplication>
#include <QScreen>

#include <algorithm>
#include <chrono>
#include <utility>

namespace quenara {

namespace {

constexpr QRect stageFrame(180, 160, 1180, 720);
constexpr QSize stageMinimumSize(900, 540);
/// How long screens stay as they are before a display comes back: a loose plug comes and goes, and
/// the desktop takes its time to arrange them.
constexpr std::chrono::milliseconds screensSettleIn(300);

/// The screen with the window that has the focus, else the primary one; null without screens.
QScreen *mainScreen()
{
    const QWidget *active = QApplication::activeWindow();
    return active ? active->screen() : QGuiApplication::primaryScreen();
}

QList<QRect> framesOf(const QList<PlacedScreen> &screens)
{
    QList<QRect> frames;
    for (const PlacedScreen &screen : screens)
        frames.append(screen.frame);
    return frames;
}

std::optional<qsizetype> indexOf(const QList<PlacedScreen> &screens, const QScreen *screen)
{
    const auto found =
        std::find_if(screens.cbegin(), screens.cend(),
                     [&](const PlacedScreen &placed) { return placed.screen == screen; });
    return found == screens.cend() ? std::nullopt : std::optional(found - screens.cbegin());
}

} // namespace

WindowCoordinator::WindowCoordinator(const SystemColorScheme &systemScheme, RenderCaches &caches,
                                     QObject *parent)
    : QObject(parent), m_systemScheme(systemScheme), m_caches(caches)
{
    connect(&systemScheme, &SystemColorScheme::schemeChanged, this,
            &WindowCoordinator::applyScheme);
    connect(&m_screens, &ScreenWatch::changed, this, &WindowCoordinator::followScreens);
    m_screensSettled.setSingleShot(true);
    m_screensSettled.setInterval(screensSettleIn);
    connect(&m_screensSettled, &QTimer::timeout, this, &WindowCoordinator::comeBack);
}

WindowCoordinator::~WindowCoordinator()
{
    // Not later: what the windows show may not outlive the coordinator.
    for (Output *output : {&m_display, &m_stage})
        delete output->window.release();
}

void WindowCoordinator::adopt(Output &output, OutputWindow *window, Signal changed)
{
    output.window.reset(window);
    output.closeObserver.reset(
        new WindowCloseObserver(window, [this, &output, changed] { release(output, changed); }));
    if (!std::exchange(output.isOpen, true))
        emit(this->*changed)();
}

void WindowCoordinator::release(Output &output, Signal changed)
{
    output.window.reset();
    output.closeObserver.reset();
    if (std::exchange(output.isOpen, false))
        emit(this->*changed)();
}

void WindowCoordinator::openDisplayWindow(const WorkspaceStore &store, AppAppearance appearance)
{
    if (m_display.window) {
        bringToFront(*m_display.window);
        return;
    }
    openDisplay(store, appearance, displayScreen());
    bringToFront(*m_display.window);
}

/// The screen that an audience display opened by command covers; none without screens.
PlacedScreen WindowCoordinator::displayScreen() const
{
    const QList<PlacedScreen> screens = m_screens.screens();
    const QList<QRect> frames = framesOf(screens);
    const auto main = indexOf(screens, mainScreen());
    const QRect frame = displayFrame(frames, main ? std::optional(frames.at(*main)) : std::nullopt);
    // Of two that show the same, the later is not the operator's.
    return screens.value(frames.lastIndexOf(frame), {nullptr, frame});
}

/// Whether a display over \a frame does without a window manager. Those move the windows of a
/// screen that goes to one that stays before the program hears of it: the display would lie over
/// what the operator sees.
bool WindowCoordinator::goesUnmanaged(const QRect &frame) const
{
    const QList<QRect> frames = framesOf(m_screens.screens());
    return m_screens.isX11() && isApart(frame, frames, operatorScreen(frames));
}

/// Shows a new \a window without frame over the whole of a screen.
void WindowCoordinator::cover(QWidget &window, const PlacedScreen &target) const
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

/// Has the open display cover \a target.
void WindowCoordinator::moveDisplay(const PlacedScreen &target)
{
    OutputWindow &window = *m_display.window;
    const bool isOnScreen = window.screen() == target.screen || window.geometry() == target.frame;
    const bool isManaged = !window.windowFlags().testFlag(Qt::BypassWindowManagerHint);
    if (isOnScreen && !(isManaged && goesUnmanaged(target.frame))) {
        window.setGeometry(target.frame);
        m_displayScreen = target.screen;
    } else {
        // Window managers neither move a window that covers a screen nor let go of one in time.
        window.hide();
        openDisplay(*m_displayStore, m_appearance, target);
    }
}

void WindowCoordinator::openDisplay(const WorkspaceStore &store, AppAppearance appearance,
                                    const PlacedScreen &screen)
{
    auto *window = new OutputWindow(new DisplayOutputView(store, m_caches),
                                    Qt::Window | Qt::FramelessWindowHint);
    window->setBackground(Qt::black);
    window->setObjectName(QStringLiteral("displayWindow"));
    window->setWindowTitle(QStringLiteral("Quenara Display"));
    window->setAppearance(appearance);
    // It comes by itself, too, while somebody types elsewhere.
    window->setAttribute(Qt::WA_ShowWithoutActivating);
    cover(*window, screen);
    m_displayScreen = screen.screen;
    m_displayStore = &store;
    m_isDisplayWaiting = false;
    adopt(m_display, window, &WindowCoordinator::isDisplayWindowOpenChanged);
}

void WindowCoordinator::openStageWindow(const WorkspaceStore &store, AppAppearance appearance)
{
    if (m_stage.window) {
        bringToFront(*m_stage.window);
        return;
    }
    auto *window = new OutputWindow(new StageOutputView(store, m_caches), Qt::Window);
    window->setObjectName(QStringLiteral("stageWindow"));
    window->setWindowTitle(QStringLiteral("Quenara Stage"));
    window->setMinimumSize(stageMinimumSize);
    window->setGeometry(stageFrame);
    window->setAppearance(appearance);
    window->show();
    bringToFront(*window);
    adopt(m_stage, window, &WindowCoordinator::isStageWindowOpenChanged);
}

void WindowCoordinator::closeDisplayWindow()
{
    m_isDisplayWaiting = false;
    if (m_display.window)
        m_display.window->close();
    release(m_display, &WindowCoordinator::isDisplayWindowOpenChanged);
}

void WindowCoordinator::followScreens()
{
    const QList<PlacedScreen> screens = m_screens.screens();
    if (screens.isEmpty())
        return; // there is nothing to see them on, and nobody
    if (!m_display.window) {
        m_screensSettled.start();
        return;
    }
    const QList<QRect> frames = framesOf(screens);
    const auto next =
        screenToFollow(frames, indexOf(screens, m_displayScreen), operatorScreen(frames));
    if (next) {
        moveDisplay(screens.at(*next));
    } else {
        closeDisplayWindow();
        m_isDisplayWaiting = true;
    }
}

void WindowCoordinator::comeBack()
{
    const QList<PlacedScreen> screens = m_screens.screens();
    const QList<QRect> frames = framesOf(screens);
    const auto free = freeScreen(frames, operatorScreen(frames));
    if (free && m_isDisplayWaiting && m_displayStore)
        openDisplay(*m_displayStore, m_appearance, screens.at(*free));
}

/// The one of \a screens with the operator's window; empty without one.
QRect WindowCoordinator::operatorScreen(const QList<QRect> &screens) const
{
    if (!m_operatorWindow)
        return {};
    const QPoint center = m_operatorWindow->frameGeometry().center();
    const auto found = std::find_if(screens.cbegin(), screens.cend(),
                                    [&](const QRect &screen) { return screen.contains(center); });
    return found == screens.cend() ? QRect() : *found;
}

void WindowCoordinator::closeStageWindow()
{
    if (m_stage.window)
        m_stage.window->close();
    release(m_stage, &WindowCoordinator::isStageWindowOpenChanged);
}

void WindowCoordinator::updateAppearance(AppAppearance appearance)
{
    m_appearance = appearance;
    for (const Output *output : {&m_display, &m_stage}) {
        if (output->window)
            output->window->setAppearance(appearance);
    }
    applyScheme();
}

void WindowCoordinator::applyScheme()
{
    const ZelvoTheme &theme =
        ZelvoTheme::current(colorScheme(m_appearance).value_or(m_systemScheme.scheme()));
    QApplication::setPalette(interfacePalette(theme));
    qApp->setStyleSheet(interfaceStyleSheet(theme));
}

} // namespace quenara
