#pragma once

#include <QWidget>

class QLabel;
class QStackedWidget;

namespace quenara {

class PictureCache;
class SlideCanvas;
class SymbolButton;
class WorkspaceStore;

/// The centre of the editor: the selected slide's title, what adds layers to it, and the slide as
/// it is edited; a hint while no slide is selected.
class DesignCanvasView : public QWidget
{
    Q_OBJECT

public:
    DesignCanvasView(WorkspaceStore &store, PictureCache &pictures, QWidget *parent = nullptr);

private:
    QWidget *makeHeader();
    QWidget *makeEmptyState();
    void showStore();

    WorkspaceStore &m_store;
    QLabel *m_title = nullptr;
    QList<SymbolButton *> m_addButtons;
    QStackedWidget *m_area = nullptr;
    SlideCanvas *m_canvas = nullptr;
};

} // namespace quenara
