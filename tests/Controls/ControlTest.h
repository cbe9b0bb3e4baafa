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

    explicit Shown(Control *owned) : control(*owned)
    {
        owned->setParent(&window);
        owned->resize(owned->sizeHint());
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("the window does not become active");
    }
};

} // namespace quenara::test
