#pragma once

#include "SelectionBindings.h"

#include <QWidget>

namespace quenara {

struct RenderCaches;

/// The properties of the selected slide, its background and its selected layer, with the list of
/// its layers: a column that scrolls, on the smallest screens sideways, too.
class InspectorView : public QWidget
{
    Q_OBJECT

public:
    InspectorView(WorkspaceStore &store, RenderCaches &caches, QWidget *parent = nullptr);

    QSize sizeHint() const override;

private:
    QWidget *makeColumn(RenderCaches &caches);

    SelectionBindings m_selection;
};

} // namespace quenara
