#pragma once

#include <QList>
#include <QWidget>

#include <functional>

class QVBoxLayout;

namespace quenara {

class LayerRow;
class WorkspaceStore;
struct SlideElement;

/// The layers of the selected slide, topmost first, with buttons that add, copy, delete and move
/// them.
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
    QWidget *m_lastTabStop = nullptr; ///< in the last row, or in the header if there is none
    QWidget *m_header;
    QWidget *m_list;
    QVBoxLayout *m_rowsLayout;
    QWidget *m_actions;
    QList<LayerRow *> m_rows; ///< from the top; those that are not needed now are hidden
};

} // namespace quenara
