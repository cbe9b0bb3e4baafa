#include "WindowCoordinator.h"

#include "BringToFront.h"
#include "DisplayOutputView.h"
#include "EscapeTwice.h"
#include "StageOutputView.h"
#include "UnaskedKeyboard.h"
#include "WorkspaceStore.h"

#include <QShortcut>
#include <QWindow>

#include <utility>

namespace quenara {

namespace {

constexpr QRect stageFrame({180, 160}, StageOutputView::usualSize);
constexpr QSize stageMinimumSize(900, 540);
constexpr int mostFetches = 3;

} // namespace

WindowCoordinator::WindowCoordinator(const SystemColorScheme &systemScheme, RenderCaches &caches,
                                     QObject *parent)
    : QObject(parent), m_caches(caches), m_appearance(systemScheme)
{
    connect(&m_placement, &DisplayPlacement::screensChanged, this,
            &WindowCoordinator::followScreens);
    m_screensSettled.setSingleShot(true);
    m_screensSettled.setInterval(screensSettleIn);
    connect(&m_screensSettled, &QTimer::timeout, this, &WindowCoordinator::reopenWaiting);
}

WindowCoordinator::~WindowCoordinator()
{
    // Deleted now, not later: what the windows show need not outlive the coordinator.
    for (Output *output : {&m_display, &m_stage})
        delete output->window.release();
}

void WindowCoordinator::keepOff(QWidget &operatorWindow)
{
    m_placement.keepOff(operatorWindow);
    m_stagePlacement.keepOff(operatorWindow);
}

void WindowCoordinator::adopt(Output &output, OutputWindow *window)
{
    output.window.reset(window);
    output.closeObserver.reset(
        new WindowCloseObserver(window, [this, &output] { release(output); }));
    emit windowMade(window);
    if (!std::exchange(output.isOpen, true))
        emit(this->*output.openChanged)();
}

void WindowCoordinator::release(Output &output)
{
    output.window.reset();
    output.closeObserver.reset();
    if (std::exchange(output.isOpen, false))
        emit(this->*output.openChanged)();
}

void WindowCoordinator::close(Output &output)
{
    if (output.window)
        output.window->close();
    release(output);
}

void WindowCoordinator::openDisplayWindow(const WorkspaceStore &store, AppAppearance appearance)
{
    m_hasDisplayFollowed = false; // it was sent where it lies from here on
    m_fetchesLeft = mostFetches;
    // One that has left the wrong screen is hidden until the screens settle.
    if (!m_display.window || !m_display.window->isVisible())
        openDisplay(store, appearance, m_placement.screenByCommand(), Opening::asked);
    bringToFront(*m_display.window);
}

void WindowCoordinator::openDisplay(const WorkspaceStore &store, AppAppearance appearance,
                                    const PlacedScreen &screen, Opening opening)
{
    auto *window = new OutputWindow(new DisplayOutputView(store, m_caches),
                                    Qt::Window | Qt::FramelessWindowHint);
    window->setBackground(Qt::black);
    window->setObjectName(QStringLiteral("displayWindow"));
    window->setWindowTitle(QStringLiteral("Quenara Display"));
    window->setAppearance(appearance);
    // The display may open by itself while somebody types elsewhere.
    window->setAttribute(Qt::WA_ShowWithoutActivating);
    connect(new EscapeTwice(*window), &EscapeTwice::pressed, this,
            &WindowCoordinator::leaveDisplay);
    if (opening == Opening::unasked)
        new UnaskedKeyboard(*window);
    m_placement.cover(*window, screen);
    connect(window->windowHandle(), &QWindow::screenChanged, this,
            &WindowCoordinator::leaveWrongScreen);
    m_displayScreen = screen.screen;
    m_displayStore = &store;
    setDisplayWaiting(false);
    adopt(m_display, window);
    keepStageOffDisplay();
}

void WindowCoordinator::closeDisplayWindow()
{
    setDisplayWaiting(false);
    close(m_display);
}

void WindowCoordinator::setDisplayWaiting(bool isWaiting)
{
    if (std::exchange(m_isDisplayWaiting, isWaiting) != isWaiting)
        emit isDisplayWaitingChanged();
}

/// Nothing else that the operator can reach closes a display over the only screen, and nothing on
/// it may say how.
void WindowCoordinator::leaveDisplay()
{
    if (m_placement.coversOperator(*m_display.window))
        closeDisplayWindow();
}

void WindowCoordinator::openStageWindow(const WorkspaceStore &store, AppAppearance appearance)
{
    if (!m_stage.window) {
        OutputWindow *window = makeStageWindow(store, appearance);
        m_stagePlacement.forget();
        window->setGeometry(stageFrame);
        showStage(window);
    }
    bringToFront(*m_stage.window);
}

/// It is shown neither yet nor anywhere in particular.
OutputWindow *WindowCoordinator::makeStageWindow(const WorkspaceStore &store,
                                                 AppAppearance appearance)
{
    auto *view = new StageOutputView(store, m_caches);
    auto *window = new OutputWindow(view, Qt::Window);
    window->setObjectName(QStringLiteral("stageWindow"));
    window->setWindowTitle(QStringLiteral("Quenara Stage"));
    window->setMinimumSize(stageMinimumSize);
    window->setAppearance(appearance);
    auto *escape = new QShortcut(Qt::Key_Escape, window);
    escape->setAutoRepeat(false);
    escape->setEnabled(false);
    connect(escape, &QShortcut::activated, this, &WindowCoordinator::leaveStageFullScreen);
    connect(window, &OutputWindow::doubleClicked, this,
            [this] { toggleStageFullScreen(Opening::asked); });
    connect(window, &OutputWindow::windowStateChanged, this, [this, window, view, escape] {
        view->setMagnified(window->isFullScreen());
        escape->setEnabled(window->isFullScreen());
        keepStageOffDisplay();
    });
    m_stagePlacement.follow(*window);
    m_stageStore = &store;
    m_isStageWaiting = false;
    return window;
}

void WindowCoordinator::closeStageWindow()
{
    m_isStageWaiting = false;
    close(m_stage);
}

bool WindowCoordinator::canToggleStageFullScreen() const
{
    if (!m_stage.window || isStageFullScreen())
        return m_stage.window != nullptr;
    return !m_display.window || !m_placement.sharesScreen(*m_display.window, *m_stage.window);
}

void WindowCoordinator::toggleStageFullScreen()
{
    const bool hasKeys = m_stage.window && m_stage.window->isActiveWindow();
    toggleStageFullScreen(hasKeys ? Opening::asked : Opening::unasked);
}

void WindowCoordinator::toggleStageFullScreen(Opening opening)
{
    if (isStageFullScreen())
        return leaveStageFullScreen();
    if (!canToggleStageFullScreen())
        return;
    OutputWindow &stage = *m_stage.window;
    const bool coversOperator = m_placement.coversOperator(stage);
    // Window managers give the keyboard to what fills a screen.
    if (opening == Opening::unasked && !coversOperator && !stage.findChild<UnaskedKeyboard *>())
        new UnaskedKeyboard(stage);
    stage.setWindowState((stage.windowState() & ~Qt::WindowMinimized) | Qt::WindowFullScreen);
    // Over what the operator sees, Escape must reach it.
    if (coversOperator)
        bringToFront(stage);
}

void WindowCoordinator::leaveStageFullScreen() const
{
    if (m_stage.window)
        m_stage.window->setWindowState(m_stage.window->windowState() & ~Qt::WindowFullScreen);
}

/// Of the two, it is the display that fills a screen, whatever the desktop has made of them.
void WindowCoordinator::keepStageOffDisplay()
{
    if (isStageFullScreen() && m_display.window
        && m_placement.sharesScreen(*m_display.window, *m_stage.window))
        leaveStageFullScreen();
    emit isStageFullScreenChanged();
}

SessionWindows WindowCoordinator::sessionWindows() const
{
    SessionWindows windows{.isStageOpen = m_stage.isOpen || m_isStageWaiting};
    if (m_display.window && m_placement.coversOperator(*m_display.window)) {
        windows.display = DisplayPlace::overOperator;
    } else if (m_display.window || m_isDisplayWaiting) {
        windows.display = DisplayPlace::besideOperator;
    }
    return windows;
}

void WindowCoordinator::reopen(const WorkspaceStore &store, AppAppearance appearance,
                               const SessionWindows &windows)
{
    if (windows.isStageOpen)
        openStageWindow(store, appearance);
    switch (windows.display) {
    case DisplayPlace::closed:
        break;
    case DisplayPlace::besideOperator:
        m_displayStore = &store;
        setDisplayWaiting(true);
        reopenDisplay();
        break;
    case DisplayPlace::overOperator:
        openDisplayWindow(store, appearance);
        break;
    }
}

void WindowCoordinator::followScreens()
{
    if (m_placement.screens().isEmpty())
        return; // there is no screen to see them on
    m_screensSettled.start();
    m_fetchesLeft = mostFetches;
    m_stagePlacement.awaitSettling();
    if (m_stage.window && m_stagePlacement.hasLostScreen()) {
        m_isStageWaiting = true; // before the change is told of
        close(m_stage);
    }
    if (m_display.window)
        followWithDisplay();
}

void WindowCoordinator::followWithDisplay()
{
    const auto screen = m_placement.screenToFollow(m_displayScreen);
    if (!screen)
        return awaitDisplayScreen();
    m_hasDisplayFollowed = m_hasDisplayFollowed || screen->screen != m_displayScreen;
    if (m_placement.move(*m_display.window, *screen)) {
        m_displayScreen = screen->screen;
        keepStageOffDisplay();
    } else {
        // One that the operator gave the keyboard keeps it.
        const bool hasKeys =
            m_display.window->isActiveWindow() && !m_display.window->findChild<UnaskedKeyboard *>();
        m_display.window->hide();
        openDisplay(*m_displayStore, m_appearance.appearance(), *screen,
                    hasKeys ? Opening::asked : Opening::unasked);
    }
}

/// A desktop that places windows itself may put the display on another screen when one changes,
/// and says so after that. What the operator sees is free at once; the display goes back to its
/// screen when all stay as they are.
void WindowCoordinator::leaveWrongScreen()
{
    if (!m_display.window || !m_placement.isAstray(*m_display.window, m_displayScreen))
        return;
    if (m_placement.coversOperator(*m_display.window))
        m_display.window->hide();
    m_screensSettled.start();
}

void WindowCoordinator::awaitDisplayScreen()
{
    closeDisplayWindow();
    setDisplayWaiting(true);
}

void WindowCoordinator::reopenWaiting()
{
    // By now it is known where the operator's window has come to meanwhile.
    const bool hasFollowed = std::exchange(m_hasDisplayFollowed, false);
    if (hasFollowed && m_display.window && m_placement.coversOperator(*m_display.window))
        awaitDisplayScreen();
    fetchDisplayBack();
    reopenDisplay();
    reopenStage();
}

/// Not more than a few times: where the desktop does not heed what it is asked for, the display
/// waits until the screens change.
void WindowCoordinator::fetchDisplayBack()
{
    const OutputWindow *display = m_display.window.get();
    // One that has left the wrong screen may be on its own again by now, and still hidden.
    if (!display || (display->isVisible() && !m_placement.isAstray(*display, m_displayScreen)))
        return;
    if (m_fetchesLeft-- > 0) {
        followWithDisplay();
    } else {
        awaitDisplayScreen();
    }
}

void WindowCoordinator::reopenDisplay()
{
    if (!m_isDisplayWaiting || !m_displayStore)
        return;
    if (const auto screen = m_placement.freeScreen())
        openDisplay(*m_displayStore, m_appearance.appearance(), *screen, Opening::unasked);
}

void WindowCoordinator::reopenStage()
{
    if (!m_isStageWaiting || !m_stageStore || !m_stagePlacement.canReturn(m_display.window.get()))
        return;
    OutputWindow *window = makeStageWindow(*m_stageStore, m_appearance.appearance());
    m_stagePlacement.restore(*window);
    // It comes by itself, while somebody may type elsewhere.
    window->setAttribute(Qt::WA_ShowWithoutActivating);
    new UnaskedKeyboard(*window);
    showStage(window);
}

void WindowCoordinator::showStage(OutputWindow *window)
{
    window->show();
    connect(window->windowHandle(), &QWindow::screenChanged, this,
            &WindowCoordinator::keepStageOffDisplay);
    adopt(m_stage, window);
}

void WindowCoordinator::updateAppearance(AppAppearance appearance)
{
    for (const Output *output : {&m_display, &m_stage}) {
        if (output->window)
            output->window->setAppearance(appearance);
    }
    m_appearance.set(appearance);
}

} // namespace quenara
