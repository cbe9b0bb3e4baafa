#pragma once

#include <QDialog>

#include <functional>

class QScrollArea;

namespace quenara {

class WorkspaceStore;

/// The sheet that offers new projects, the demo, a file, and the recent projects. Every choice
/// dismisses it, unless the operator decides to keep the open document.
class StartPanelView : public QDialog
{
    Q_OBJECT

public:
    /// Asked before each choice. False keeps the document and the sheet.
    using MayReplaceDocument = std::function<bool()>;

    StartPanelView(WorkspaceStore &store, MayReplaceDocument mayReplaceDocument, QWidget *parent);

private:
    using Choice = std::function<void(WorkspaceStore &)>;

    void choose(const Choice &choice);
    QWidget *makeStartColumn();
    QWidget *makeRecentColumn();
    void showRecentProjects();

    WorkspaceStore &m_store;
    MayReplaceDocument m_mayReplaceDocument;
    QScrollArea *m_recentProjects = nullptr;
};

} // namespace quenara
