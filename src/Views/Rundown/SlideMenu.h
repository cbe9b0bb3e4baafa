#pragma once

#include <QString>

class QMenu;
class QWidget;

namespace quenara {

class CommandActions;
class WorkspaceStore;

/// The context menu of the slide with that id: sends it live, duplicates it, deletes it. Deletes
/// itself once it is closed.
[[nodiscard]] QMenu *makeSlideMenu(WorkspaceStore &store, const CommandActions &commands,
                                   const QString &slideID, QWidget *parent);

} // namespace quenara
