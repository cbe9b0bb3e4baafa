#include "BringToFront.h"

#include <QWidget>

namespace quenara {

void bringToFront(QWidget &window)
{
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.raise();
    window.activateWindow();
}

} // namespace quenara
