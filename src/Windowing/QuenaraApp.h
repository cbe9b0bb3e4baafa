#pragma once

#include "ActivationGuard.h"
#include "AppearancePreference.h"
#include "AudienceAnnouncer.h"
#include "CommandActions.h"
#include "ContextMenuKey.h"
#include "DeferredPreferences.h"
#include "DocumentGuard.h"
#include "ExportWindow.h"
#include "FileDialogRunner.h"
#include "FocusRing.h"
#include "LatinKeys.h"
#include "LeaveQuestionBox.h"
#include "OperatorWindow.h"
#include "OutputWindowController.h"
#include "Recovery.h"
#include "RenderCaches.h"
#include "SessionEnd.h"
#include "SessionRecorder.h"
#include "SettingsWindow.h"
#include "ShortcutGuard.h"
#include "SleepInhibitor.h"
#include "SystemColorScheme.h"
#include "WindowCoordinator.h"
#include "WindowMemory.h"
#include "WorkspaceStore.h"
#include "ZelvoCommands.h"

#include <QSettings>

#include <memory>

namespace quenara {

/// The running application: the one store, the one coordinator, the operator window, the settings
/// window, and what keeps every window's appearance in step with the preference.
class QuenaraApp
{
public:
    /// Needs a QApplication. Shows the operator window on an empty project.
    /// \a platformPalette tells the scheme of a desktop that has no portal.
    explicit QuenaraApp(const QPalette &platformPalette);

    /// Asks about what an unexpected end has left; then opens the document at \a path, or offers
    /// projects if it is empty. What goes on instead takes the place of either.
    void start(const QString &path);
    /// Opens the document the program was started with.
    void openDocument(const QString &path);
    /// Offers projects when it was started without a document.
    void showStartPanel() { m_store.showStartPanel(); }

    /// Ends the program although nobody can be asked: unsaved work is left to the next start, as
    /// far as it can be written.
    void endWithoutAsking();

    AppearancePreference &appearance() { return m_appearance; }

private:
    void begin(const QString &path);
    bool isOpenElsewhere(const QUrl &file) const;
    bool mayOpen(const QUrl &file);

    QSettings m_preferences;
    FileDialogRunner m_panels;
    LeaveQuestionBox m_questions;
    WorkspaceStore m_store;
    SystemColorScheme m_systemScheme;
    RenderCaches m_caches;
    SleepInhibitor m_sleepInhibitor;
    WindowCoordinator m_windows;
    AppearancePreference m_appearance;
    OutputWindowController m_outputs;
    SessionRecorder m_recorder; // gone before the windows are, which it would record
    AudienceAnnouncer m_announcer;
    ShortcutGuard m_shortcutGuard;
    ContextMenuKey m_contextMenuKey;
    ActivationGuard m_activationGuard;
    FocusRing m_focusRing;
    DocumentGuard m_guard;
    CommandActions m_commands;
    LatinKeys m_latinKeys;
    ZelvoCommands m_menus;
    OperatorWindow m_operatorWindow;
    WindowMemory m_windowMemory;
    SettingsWindow m_settingsWindow;
    ExportWindow m_exportWindow;
    DeferredPreferences m_deferredPreferences;
    SessionEnd m_sessionEnd;
    std::unique_ptr<Recovery> m_recovery;
};

} // namespace quenara
