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

QList<QRect> framesOf(const QList<QScreen *> &screens)
{
    QList<QRect> frames;
    for (const QScreen *screen : screens)
        frames.append(screen->geometry());
    return frames;
}

/// The screen that an audience display opened by command covers; null without screens.
QScreen *displayScreen()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    const QScreen *main = mainScreen();
    const QRect frame =
        displayFrame(framesOf(screens), main ? std::optional(main->geometry()) : std::nullopt);
    // Of two that show the same, the later is not the operator's.
    const auto found = std::find_if(screens.crbegin(), screens.crend(), [&](const QScreen *screen) {
        return screen->geometry() == frame;
    });
    return found == screens.crend() ? nullptr : *found;
}

/// Shows \a window without frame over the whole of \a screen.
void cover(QWidget &window, QScreen *screen)
{
    if (!screen) {
        window.setGeometry(displayFrame({}, std::nullopt));
        window.show();
        return;
    }
    if (window.isVisible() && window.geometry() == screen->geometry())
        return;
    // A window over the whole screen is not moved to another one while it is shown.
    if (window.isVisible() && window.screen() != screen)
        window.hide();
    window.setScreen(screen);
    window.setGeometry(screen->geometry());
    // The full-screen state keeps panels of the desktop below, and is the only way to choose a
    // screen where windows cannot place themselves. showFullScreen() would take the keyboard.
    window.setWindowState(window.windowState() | Qt::WindowFullScreen);
    window.show();
}

} // namespace

WindowCoordinator::WindowCoordinator(const SystemColorScheme &systemScheme, PictureCache &pictures,
                                     QObject *parent)
    : QObject(parent), m_systemScheme(systemScheme), m_pictures(pictures)
{
    connect(&systemScheme, &SystemColorScheme::schemeChanged, this,
            &WindowCoordinator::applyScheme);
    const QList<QScreen *> screens = QGuiApplication::screens();
    std::for_each(screens.cbegin(), screens.cend(),
                  [this](QScreen *screen) { followScreen(screen); });
    connect(qApp, &QGuiApplication::screenAdded, this, [this](const QScreen *screen) {
        followScreen(screen);
        followScreens();
    });
    connect(qApp, &QGuiApplication::screenRemoved, this, &WindowCoordinator::followScreens);
    m_screensSettled.setSingleShot(true);
    m_screensSettled.setInterval(screensSettleIn);
    connect(&m_screensSettled, &QTimer::timeout, this, &WindowCoordinator::settleDisplay);
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
    output.isOpen = true;
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

void WindowCoordinator::openDisplay(const WorkspaceStore &store, AppAppearance appearance,
                                    QScreen *screen)
{
    auto *window = new OutputWindow(new DisplayOutputView(store, m_pictures),
                                    Qt::Window | Qt::FramelessWindowHint);
    window->setBackground(Qt::black);
    window->setObjectName(QStringLiteral("displayWindow"));
    window->setWindowTitle(QStringLiteral("Quenara Display"));
    window->setAppearance(appearance);
    // It comes by itself, too, while somebody types elsewhere.
    window->setAttribute(Qt::WA_ShowWithoutActivating);
    connect(window, &OutputWindow::moved, &m_screensSettled, qOverload<>(&QTimer::start));
    cover(*window, screen);
    m_displayScreen = screen;
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
    auto *window = new OutputWindow(new StageOutputView(store, m_pictures), Qt::Window);
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

void WindowCoordinator::followScreen(const QScreen *screen) const
{
    connect(screen, &QScreen::geometryChanged, this, &WindowCoordinator::followScreens);
}

void WindowCoordinator::followScreens()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    if (screens.isEmpty())
        return; // there is nothing to see them on, and nobody
    if (!m_display.window) {
        m_screensSettled.start();
        return;
    }
    const qsizetype covered = screens.indexOf(m_displayScreen);
    const auto next = screenToFollow(
        framesOf(screens), covered < 0 ? std::nullopt : std::optional(covered), operatorScreen());
    if (next) {
        m_displayScreen = screens.at(*next);
        cover(*m_display.window, m_displayScreen);
    } else {
        closeDisplayAndWait();
    }
}

/// What must be right once nothing changes any more.
void WindowCoordinator::settleDisplay()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    if (screens.isEmpty())
        return;
    if (m_display.window) {
        // A screen that becomes a mirror is not always told of, but its windows are moved.
        const QRect primary = screens.first()->geometry();
        if (m_displayScreen && !m_displayScreen->geometry().intersects(primary)
            && primary.contains(m_display.window->geometry().center()))
            closeDisplayAndWait();
    } else if (const auto free = freeScreen(framesOf(screens), operatorScreen());
               free && m_isDisplayWaiting && m_displayStore) {
        openDisplay(*m_displayStore, m_appearance, screens.at(*free));
    }
}

void WindowCoordinator::closeDisplayAndWait()
{
    closeDisplayWindow();
    m_isDisplayWaiting = true;
}

QRect WindowCoordinator::operatorScreen() const
{
    return m_operatorWindow ? m_operatorWindow->screen()->geometry() : QRect();
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
