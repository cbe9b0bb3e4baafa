#pragma once

#include <QMenu>

namespace quenara {

class CommandActions;
class WorkspaceStore;

/// The recent projects as a menu, disabled while there are none.
class OpenRecentMenu : public QMenu
{
    Q_OBJECT

public:
    OpenRecentMenu(WorkspaceStore &store, CommandActions &commands, QWidget *parent);

private:
    void showProjects();

    WorkspaceStore &m_store;
    CommandActions &m_commands;
};

} // namespace quenara
