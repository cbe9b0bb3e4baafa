#pragma once

#include <QWidget>

namespace quenara {

class PictureCache;
class RundownList;
class SymbolButton;
class WorkspaceStore;

/// The left panel of the operator window: the rundown, and the buttons that add, duplicate, delete
/// and move its sections and slides.
class RundownView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int panelWidth = 286; ///< points

    RundownView(WorkspaceStore &store, PictureCache &pictures, QWidget *parent = nullptr);

private:
    QWidget *makeHeader();
    QWidget *makeFooter();

    WorkspaceStore &m_store;
};

} // namespace quenara
