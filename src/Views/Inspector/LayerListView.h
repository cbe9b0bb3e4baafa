#pragma once

#include "LayerRow.h"
#include "ProjectModels.h"

#include <QList>
#include <QWidget>

#include <optional>

class QLabel;
class QVBoxLayout;

namespace quenara {

struct RenderCaches;
class WorkspaceStore;

/// The layers of the selected slide, topmost first, with buttons that add, copy, delete and move
/// them. Of more layers than a design has, those around the selected one have rows.
class LayerListView : public QWidget
{
    Q_OBJECT

public:
    LayerListView(WorkspaceStore &store, RenderCaches &caches, QWidget *parent = nullptr);

private:
    QWidget *makeHeader();
    QWidget *makeActions();
    LayerRow *makeRow();
    void openMenu(const QString &layerID, const QPoint &place);
    void showStore();
    QList<LayerRow::Contents> chosenRows(const QList<LayerRow::Contents> &all);
    void showWarning(const std::optional<Slide> &slide);

    WorkspaceStore &m_store;
    RenderCaches &m_caches;
    std::optional<SlideDesign> m_checkedDesign; ///< what the warning is about
    QWidget *m_warning;
    QWidget *m_lastTabStop = nullptr; ///< in the last row, or in the header if there is none
    QWidget *m_header;
    QWidget *m_list;
    QVBoxLayout *m_rowsLayout;
    QWidget *m_actions;
    QLabel *m_above; ///< says how many layers lie above the first row; hidden if none does
    QLabel *m_below; ///< likewise below the last one
    qsizetype m_firstRow = 0; ///< the first layer from the top that has a row
    QList<LayerRow *> m_rows; ///< from the top; those that are not needed now are hidden
};

} // namespace quenara
