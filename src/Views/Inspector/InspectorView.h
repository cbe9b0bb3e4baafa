#pragma once

#include "SelectionBindings.h"

#include <QWidget>

namespace quenara {

/// The properties of the selected slide, its background and its selected layer, with the list of
/// its layers.
class InspectorView : public QWidget
{
    Q_OBJECT

public:
    explicit InspectorView(WorkspaceStore &store, QWidget *parent = nullptr);

private:
    QWidget *makeColumn();

    SelectionBindings m_selection;
};

} // namespace quenara
