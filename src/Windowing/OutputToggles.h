#pragma once

#include "OutputSwitches.h"

namespace quenara {

class AppearancePreference;
class WindowCoordinator;
class WorkspaceStore;

/// Opens and closes the coordinator's windows, on one store and in the preferred appearance.
class OutputToggles : public OutputSwitches
{
    Q_OBJECT

public:
    OutputToggles(const WorkspaceStore &store, WindowCoordinator &windows,
                  const AppearancePreference &appearance, QObject *parent = nullptr);

    bool isDisplayWindowOpen() const override;
    bool isStageWindowOpen() const override;
    void toggleDisplayWindow() override;
    void toggleStageWindow() override;

private:
    const WorkspaceStore &m_store;
    WindowCoordinator &m_windows;
    const AppearancePreference &m_appearance;
};

} // namespace quenara
