#include "OutputWindowController.h"

#include "AppearancePreference.h"
#include "WindowCoordinator.h"

namespace quenara {

OutputWindowController::OutputWindowController(const WorkspaceStore &store,
                                               WindowCoordinator &windows,
                                               const AppearancePreference &appearance,
                                               QObject *parent)
    : OutputWindows(parent), m_store(store), m_windows(windows), m_appearance(appearance)
{
    connect(&windows, &WindowCoordinator::isDisplayWindowOpenChanged, this,
            &OutputWindows::changed);
    connect(&windows, &WindowCoordinator::isDisplayWaitingChanged, this, &OutputWindows::changed);
    connect(&windows, &WindowCoordinator::isStageWindowOpenChanged, this, &OutputWindows::changed);
    connect(&windows, &WindowCoordinator::isStageFullScreenChanged, this, &OutputWindows::changed);
}

bool OutputWindowController::isDisplayWindowOpen() const
{
    return m_windows.isDisplayWindowOpen();
}

bool OutputWindowController::isDisplayWaiting() const
{
    return m_windows.isDisplayWaiting();
}

bool OutputWindowController::isStageWindowOpen() const
{
    return m_windows.isStageWindowOpen();
}

bool OutputWindowController::isStageFullScreen() const
{
    return m_windows.isStageFullScreen();
}

bool OutputWindowController::canToggleStageFullScreen() const
{
    return m_windows.canToggleStageFullScreen();
}

void OutputWindowController::toggleDisplayWindow()
{
    if (m_windows.isDisplayWindowOpen()) {
        m_windows.closeDisplayWindow();
    } else {
        m_windows.openDisplayWindow(m_store, m_appearance.appearance());
    }
}

void OutputWindowController::toggleStageWindow()
{
    if (m_windows.isStageWindowOpen()) {
        m_windows.closeStageWindow();
    } else {
        m_windows.openStageWindow(m_store, m_appearance.appearance());
    }
}

void OutputWindowController::toggleStageFullScreen()
{
    m_windows.toggleStageFullScreen();
}

void OutputWindowController::reopen(const SessionWindows &windows)
{
    m_windows.reopen(m_store, m_appearance.appearance(), windows);
}

} // namespace quenara
