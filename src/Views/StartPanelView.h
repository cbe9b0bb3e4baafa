#pragma once

#include <QDialog>

class QVBoxLayout;

namespace quenara {

class WorkspaceStore;

/// The sheet that offers new projects, the demo, a file, and the recent projects. Every choice
/// dismisses it.
class StartPanelView : public QDialog
{
    Q_OBJECT

public:
    StartPanelView(WorkspaceStore &store, QWidget *parent);

private:
    QWidget *makeStartColumn();
    QWidget *makeRecentColumn();
    template<class Action>
    QWidget *makeStartButton(const QString &title, const QString &icon, Action action);

    WorkspaceStore &m_store;
};

} // namespace quenara
