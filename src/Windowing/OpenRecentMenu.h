#pragma once

#include <QMenu>

namespace quenara {

class DocumentGuard;
class WorkspaceStore;

/// The recent projects as a menu, disabled while there are none.
class OpenRecentMenu : public QMenu
{
    Q_OBJECT

public:
    OpenRecentMenu(WorkspaceStore &store, DocumentGuard &guard, QWidget *parent);

private:
    void showProjects();

    WorkspaceStore &m_store;
    DocumentGuard &m_guard;
};

} // namespace quenara
