#pragma once

#include <QDialog>

class QScrollArea;

namespace quenara {

class CommandActions;
class WorkspaceStore;

/// The sheet that offers new projects, the demo, a file, and the recent projects. Every choice
/// dismisses it, unless the operator decides to keep the open document.
class StartPanelView : public QDialog
{
    Q_OBJECT

public:
    StartPanelView(WorkspaceStore &store, CommandActions &commands, QWidget *parent);

private:
    void dismiss();
    QWidget *makeStartColumn();
    QWidget *makeRecentColumn();
    void showRecentProjects();

    WorkspaceStore &m_store;
    CommandActions &m_commands;
    QScrollArea *m_recentProjects = nullptr;
};

} // namespace quenara
