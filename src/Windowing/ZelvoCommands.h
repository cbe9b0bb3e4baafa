#pragma once

#include <QAction>
#include <QHash>
#include <QObject>
#include <QWidget>

#include <array>
#include <cstdint>
#include <span>

class QMenuBar;

namespace quenara {

class DocumentGuard;
class OutputSwitches;
class WindowCoordinator;
class WorkspaceStore;

enum class Command : std::uint8_t {
    newProject,
    newBlankProject,
    newSundayService,
    open,
    save,
    saveAs,
    quit,
    undo,
    redo, // up to here they work on the document, from here on for the service
    goLiveBySpace,
    goLiveByReturn,
    nextLive,
    previousLive,
    queueNext,
    queuePrevious,
    toggleBlackout,
    toggleLogo,
    toggleDisplayWindow,
    toggleStageWindow,
    settings,
    about,
};

/// What the menus say of a command.
struct CommandDescription
{
    Command command;
    const char *title; ///< empty for those whose title follows a window
    std::array<const char *, 2> shortcuts; ///< portable key sequences; null where there is none
    QAction::MenuRole role = QAction::NoRole; ///< where the platform has a place of its own for it
};

/// A menu: its title and its commands in order, in groups between separators.
struct MenuDescription
{
    const char *title;
    std::span<const std::span<const CommandDescription>> groups;
};

/// The menus of the program, in order.
std::span<const MenuDescription> menuDescriptions();

/// The menu bar's commands. Each calls one operation of the store or the coordinator, those that
/// replace the document once the guard agrees; shortcuts work in every window that is not a dialog
/// to be answered, one press being one step, but for undo and redo, which a held key repeats.
class ZelvoCommands : public QObject
{
    Q_OBJECT

public:
    ZelvoCommands(WorkspaceStore &store, WindowCoordinator &windows, OutputSwitches &outputs,
                  DocumentGuard &guard, QObject *parent = nullptr);

    void fill(QMenuBar &menuBar) const;
    /// Lets the shortcuts work in \a window.
    void addTo(QWidget &window) const { window.addActions(m_actions.values()); }

    QAction *action(Command command) const { return m_actions.value(command); }

signals:
    void quitRequested();
    void settingsRequested();
    void aboutRequested();

private:
    QAction *makeAction(const CommandDescription &description);
    void perform(Command command);
    void carryOut(Command command);
    void replaceDocument(void (WorkspaceStore::*operation)());
    void showHistory();
    void showWindows();

    WorkspaceStore &m_store;
    WindowCoordinator &m_windows;
    OutputSwitches &m_outputs;
    DocumentGuard &m_guard;
    QHash<Command, QAction *> m_actions;
};

} // namespace quenara
