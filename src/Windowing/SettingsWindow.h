#pragma once

#include <QDialog>

namespace quenara {

class AppearancePreference;
class ZelvoCommands;

/// The settings window. It stands on the operator's window, where the audience does not see it. The
/// menus' keys work in it, except for the bare keys of the show.
class SettingsWindow : public QDialog
{
    Q_OBJECT

public:
    SettingsWindow(AppearancePreference &appearance, const ZelvoCommands &menus,
                   QWidget *operatorWindow);

    /// Opens the window, or raises it if it is open.
    void present();
};

} // namespace quenara
