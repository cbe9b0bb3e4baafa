#pragma once

#include <QList>
#include <QWidget>

#include <functional>

class QVBoxLayout;

namespace quenara {

class LayerRow;
class WorkspaceStore;
struct SlideElement;

/// The layers of the selected slide, topmost first, and what can be done to them.
class LayerListView : public QWidget
{
    Q_OBJECT

public:
    explicit LayerListView(WorkspaceStore &store, QWidget *parent = nullptr);

private:
    QWidget *makeHeader();
    QWidget *makeActions();
    LayerRow *makeRow();
    void updateLayerOf(const LayerRow &row, const std::function<void(SlideElement &)> &update);
    void showStore();

    WorkspaceStore &m_store;
    QWidget *m_lastTabStop = nullptr; ///< of the rows, or of what stands above them
    QWidget *m_header;
    QVBoxLayout *m_rowsLayout;
    QWidget *m_actions;
    QList<LayerRow *> m_rows; ///< from the top; those that are not needed now are hidden
};

} // namespace quenara
