#pragma once

#include "SlideDesignModels.h"

#include <QString>

#include <functional>

class QMenu;
class QWidget;

namespace quenara {

class WorkspaceStore;

/// The context menu of that layer of the selected slide: duplicates, deletes, moves, centres, shows
/// and locks it. Each item selects it. The menu deletes itself once it is closed.
[[nodiscard]] QMenu *makeLayerMenu(WorkspaceStore &store, const SlideElement &layer,
                                   QWidget *parent);

/// Selects that layer, since the store updates no other, and updates it: an undo step of its own,
/// even while a gesture is open elsewhere.
void changeLayer(WorkspaceStore &store, const QString &layerID,
                 const std::function<void(SlideElement &)> &update);

} // namespace quenara
