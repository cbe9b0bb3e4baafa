#pragma once

#include "TestSupport.h"

#include <QList>

#include <functional>

namespace quenara::test {

/// An operation of the store that changes the project, called on some arguments.
struct NamedEdit
{
    const char *name;
    /// What it needs to have anything to do.
    enum class Needs { nothing, item, slide, layer } needs;
    /// True for the operations that a gesture holds together.
    bool isUpdate;
    std::function<void(World &)> run;
};

/// All of them, each at least once.
const QList<NamedEdit> &everyEdit();

} // namespace quenara::test
