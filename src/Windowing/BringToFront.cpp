#include "BringToFront.h"

#include "KeyboardClaim.h"
#include "UnaskedKeyboard.h"

#include <QWidget>

namespace quenara {

void bringToFront(QWidget &window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
    delete window.findChild<UnaskedKeyboard *>(); // it is asked for now
    if (window.windowFlags().testFlag(Qt::BypassWindowManagerHint)) {
        new KeyboardClaim(window);
    } else {
        window.activateWindow();
    }
}

} // namespace quenara
