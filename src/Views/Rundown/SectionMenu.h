#pragma once

#include <functional>

class QMenu;
class QModelIndex;
class QWidget;

namespace quenara {

class CommandActions;
class RundownModel;
class WorkspaceStore;

/// What the menu of a section works on.
struct SectionMenuContext
{
    WorkspaceStore &store;
    const CommandActions &commands;
    RundownModel &model;
};

/// The context menu of the section in that row: has it renamed by \a rename, chooses its type, adds
/// a slide to it, moves and deletes it. All but the first two select it. Deletes itself once it is
/// closed.
[[nodiscard]] QMenu *makeSectionMenu(const SectionMenuContext &context, const QModelIndex &section,
                                     const std::function<void()> &rename, QWidget *parent);

} // namespace quenara
