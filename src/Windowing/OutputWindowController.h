#pragma once

#include "OutputWindows.h"

namespace quenara {

class AppearancePreference;
class WindowCoordinator;
struct SessionWindows;
class WorkspaceStore;

/// The coordinator's windows for the commands: they show one store in the preferred appearance.
class OutputWindowController : public OutputWindows
{
    Q_OBJECT

public:
    OutputWindowController(const WorkspaceStore &store, WindowCoordinator &windows,
                           const AppearancePreference &appearance, QObject *parent = nullptr);

    bool isDisplayWindowOpen() const override;
    bool isDisplayWaiting() const override;
    bool isStageWindowOpen() const override;
    bool isStageFullScreen() const override;
    bool canToggleStageFullScreen() const override;
    void toggleDisplayWindow() override;
    void toggleStageWindow() override;
    void toggleStageFullScreen() override;
    /// Opens them as they were at an unexpected end.
    void reopen(const SessionWindows &windows);

private:
    const WorkspaceStore &m_store;
    WindowCoordinator &m_windows;
    const AppearancePreference &m_appearance;
};

} // namespace quenara
