#include "OutputToggles.h"

#include "AppearancePreference.h"
#include "WindowCoordinator.h"

namespace quenara {

OutputToggles::OutputToggles(const WorkspaceStore &store, WindowCoordinator &windows,
                             const AppearancePreference &appearance, QObject *parent)
    : OutputSwitches(parent), m_store(store), m_windows(windows), m_appearance(appearance)
{
    connect(&windows, &WindowCoordinator::isDisplayWindowOpenChanged, this,
            &OutputSwitches::changed);
    connect(&windows, &WindowCoordinator::isStageWindowOpenChanged, this, &OutputSwitches::changed);
}

bool OutputToggles::isDisplayWindowOpen() const
{
    return m_windows.isDisplayWindowOpen();
}

bool OutputToggles::isStageWindowOpen() const
{
    return m_windows.isStageWindowOpen();
}

void OutputToggles::toggleDisplayWindow()
{
    if (m_windows.isDisplayWindowOpen()) {
        m_windows.closeDisplayWindow();
    } else {
        m_windows.openDisplayWindow(m_store, m_appearance.appearance());
    }
}

void OutputToggles::toggleStageWindow()
{
    if (m_windows.isStageWindowOpen()) {
        m_windows.closeStageWindow();
    } else {
        m_windows.openStageWindow(m_store, m_appearance.appearance());
    }
}

} // namespace quenara
