#pragma once

#include <QDialog>

namespace quenara {

class AppearancePreference;
class ZelvoCommands;

/// The settings window. It stands on the operator's window, where the audience does not see it, and
/// takes the menus' keys.
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
