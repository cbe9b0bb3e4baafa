#pragma once

#include "WorkspaceStore.h"

#include <QList>
#include <QStringList>

#include <functional>

namespace quenara::test {

/// An operation of the store that changes the project, called on some arguments.
struct NamedEdit
{
    const char *name;
    /// The operation: the name of a slot of WorkspaceStore.
    const char *operation;
    /// What it needs to have anything to do.
    enum class Needs { nothing, item, slide, layer } needs;
    /// True for the operations that a gesture makes one undo step of.
    bool joinsGesture;
    /// Runs the operation. Some ask for an image by the store's file panels.
    std::function<void(WorkspaceStore &)> run;
};

/// The operations of WorkspaceStore that change the project, which are its slots: their names in
/// alphabetical order.
QStringList editingOperations();

/// Each of them at least once.
const QList<NamedEdit> &everyEdit();

} // namespace quenara::test
