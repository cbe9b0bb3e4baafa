#pragma once

#include <QWidget>

class QLabel;
class QStackedWidget;

namespace quenara {

class CommandActions;
struct RenderCaches;
class SlideCanvas;
class WorkspaceStore;

/// The middle of the operator's view: the title of the selected slide, the buttons that add layers
/// to it, and the canvas on which it is edited. A hint while no slide is selected.
class DesignCanvasView : public QWidget
{
    Q_OBJECT

public:
    DesignCanvasView(WorkspaceStore &store, const CommandActions &commands, RenderCaches &caches,
                     QWidget *parent = nullptr);

private:
    QWidget *makeHeader(const CommandActions &commands);
    QWidget *makeEmptyState();
    void showStore();

    WorkspaceStore &m_store;
    QLabel *m_title = nullptr;
    QStackedWidget *m_area = nullptr;
    SlideCanvas *m_canvas = nullptr;
};

} // namespace quenara
