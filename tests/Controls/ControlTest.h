#pragma once

#include "GuiTestSupport.h"

#include <QWidget>

namespace quenara::test {

/// A control in a window that is active.
template<class Control>
struct Shown
{
    QWidget window;
    Control &control;

    explicit Shown(Control *owned, const Caller &caller = Caller::current()) : control(*owned)
    {
        owned->setParent(&window);
        owned->resize(owned->sizeHint());
        showActive(window, caller);
    }
};

} // namespace quenara::test
