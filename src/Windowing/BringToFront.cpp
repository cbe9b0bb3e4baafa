#include "BringToFront.h"

#include "KeyboardClaim.h"

#include <QWidget>

namespace quenara {

void bringToFront(QWidget &window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
    if (window.windowFlags().testFlag(Qt::BypassWindowManagerHint)) {
        new KeyboardClaim(window);
    } else {
        window.activateWindow();
    }
}

} // namespace quenara
