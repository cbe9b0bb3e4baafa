#pragma once

#include "AppearancePreference.h"
#include "OperatorWindow.h"
#include "SystemColorScheme.h"
#include "TestSupport.h"
#include "WindowCoordinator.h"
#include "ZelvoCommands.h"

#include <QAction>
#include <QPalette>

namespace quenara::test {

/// A world with windows around its store, on a desktop that is light and has no portal.
struct WindowingWorld : World
{
    SystemColorScheme systemScheme{QDBusConnection(QStringLiteral("none")), QPalette(Qt::white)};
    WindowCoordinator windows{systemScheme};
    AppearancePreference appearance{preferences};
    ZelvoCommands commands{store, windows, appearance};

    void openDisplay() { windows.openDisplayWindow(store, appearance.appearance()); }
    void openStage() { windows.openStageWindow(store, appearance.appearance()); }
};

} // namespace quenara::test
