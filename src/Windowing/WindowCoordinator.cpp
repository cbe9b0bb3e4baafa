#include "WindowCoordinator.h"

#include "DisplayOutputView.h"
#include "InterfaceStyle.h"
#include "ScreenLayout.h"
#include "StageOutputView.h"
#include "SystemColorScheme.h"
#include "WorkspaceStore.h"

#include <QApplication>
#include <QScreen>

#include <utility>

namespace quenara {

namespace {

constexpr QRect stageFrame(180, 160, 1180, 720);
constexpr QSize stageMinimumSize(900, 540);

/// The screen with the window that has the focus, else the primary one; null without screens.
QScreen *mainScreen()
{
    const QWidget *active = QApplication::activeWindow();
    return active ? active->screen() : QGuiApplication::primaryScreen();
}

/// Shows \a window without frame over the whole screen that displayFrame() chooses.
void coverDisplayScreen(OutputWindow &window)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    QList<QRect> frames;
    for (const QScreen *screen : screens)
        frames.append(screen->geometry());
    const QScreen *main = mainScreen();
    const QRect frame = displayFrame(frames, main ? std::optional(main->geometry()) : std::nullopt);
    for (QScreen *screen : screens) {
        if (screen->geometry() == frame)
            window.setScreen(screen);
    }
    window.setGeometry(frame);
    // The full-screen state keeps panels of the desktop below, and is the only way to choose a
    // screen where windows cannot place themselves.
    if (screens.isEmpty()) {
        window.show();
    } else {
        window.showFullScreen();
    }
}

void raise(QWidget &window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
    window.activateWindow();
}

} // namespace

WindowCoordinator::WindowCoordinator(const SystemColorScheme &systemScheme, PictureCache &pictures,
                                     QObject *parent)
    : QObject(parent), m_systemScheme(systemScheme), m_pictures(pictures)
{
    connect(&systemScheme, &SystemColorScheme::schemeChanged, this,
            &WindowCoordinator::applyScheme);
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
        raise(*m_display.window);
        return;
    }
    auto *window = new OutputWindow(new DisplayOutputView(store, m_pictures),
                                    Qt::Window | Qt::FramelessWindowHint);
    window->setBackground(Qt::black);
    window->setObjectName(QStringLiteral("displayWindow"));
    window->setWindowTitle(QStringLiteral("Quenara Display"));
    window->setAppearance(appearance);
    coverDisplayScreen(*window);
    raise(*window);
    adopt(m_display, window, &WindowCoordinator::isDisplayWindowOpenChanged);
}

void WindowCoordinator::openStageWindow(const WorkspaceStore &store, AppAppearance appearance)
{
    if (m_stage.window) {
        raise(*m_stage.window);
        return;
    }
    auto *window = new OutputWindow(new StageOutputView(store, m_pictures), Qt::Window);
    window->setObjectName(QStringLiteral("stageWindow"));
    window->setWindowTitle(QStringLiteral("Quenara Stage"));
    window->setMinimumSize(stageMinimumSize);
    window->setGeometry(stageFrame);
    window->setAppearance(appearance);
    window->show();
    raise(*window);
    adopt(m_stage, window, &WindowCoordinator::isStageWindowOpenChanged);
}

void WindowCoordinator::closeDisplayWindow()
{
    if (m_display.window)
        m_display.window->close();
    release(m_display, &WindowCoordinator::isDisplayWindowOpenChanged);
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
