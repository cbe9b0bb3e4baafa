#pragma once

#include <functional>

class QMenu;
class QModelIndex;
class QWidget;

namespace quenara {

class RundownModel;

/// The context menu of the section in that row: has it renamed by \a rename, and chooses its type.
/// Deletes itself once it is closed.
[[nodiscard]] QMenu *makeSectionMenu(RundownModel &model, const QModelIndex &section,
                                     const std::function<void()> &rename, QWidget *parent);

} // namespace quenara
