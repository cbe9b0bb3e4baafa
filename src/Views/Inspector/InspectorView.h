#pragma once

#include "SelectionBindings.h"

#include <QWidget>

namespace quenara {

struct RenderCaches;

/// The properties of the selected slide, its background and its selected layer, with the list of
/// its layers.
class InspectorView : public QWidget
{
    Q_OBJECT

public:
    InspectorView(WorkspaceStore &store, RenderCaches &caches, QWidget *parent = nullptr);

private:
    QWidget *makeColumn(RenderCaches &caches);

    SelectionBindings m_selection;
};

} // namespace quenara
