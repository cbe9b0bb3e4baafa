#pragma once

#include <QObject>

class QMenuBar;
class QWidget;

namespace quenara {

class CommandActions;
class WindowCoordinator;
class WorkspaceStore;

/// The menu bar of the program. The keys of its items work in every window except in dialogs that
/// wait for an answer; in any other dialog, only those with a modifier do. Those of what works on
/// the selection work in the operator's window alone. A key that is held down repeats undo and redo
/// only.
class ZelvoCommands : public QObject
{
    Q_OBJECT

public:
    /// Adds the keys to each window that \a windows makes from now on.
    ZelvoCommands(WorkspaceStore &store, CommandActions &commands, WindowCoordinator &windows,
                  QObject *parent = nullptr);

    void fill(QMenuBar &menuBar) const;
    /// Lets the keys work in \a window; in a dialog, not the bare keys of the show, and those that
    /// work on the selection in a window with menus alone.
    void addTo(QWidget &window) const;

private:
    WorkspaceStore &m_store;
    CommandActions &m_commands;
};

} // namespace quenara
