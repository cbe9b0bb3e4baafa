#pragma once

#include <QWidget>

namespace quenara {

class CommandActions;
struct RenderCaches;
class WorkspaceStore;

/// The left panel of the operator window: the rundown, and the buttons that add, duplicate, delete
/// and move its sections and slides.
class RundownView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int panelWidth = 286; ///< points

    RundownView(WorkspaceStore &store, const CommandActions &commands, RenderCaches &caches,
                QWidget *parent = nullptr);
};

} // namespace quenara
