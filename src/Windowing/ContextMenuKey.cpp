#include "ContextMenuKey.h"

#include "ContextMenu.h"

#include <QApplication>
#include <QKeyEvent>

namespace quenara {

bool ContextMenuKey::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || watched != QApplication::focusWidget()
        || QApplication::activePopupWidget()) {
        return false;
    }
    const auto &press = static_cast<const QKeyEvent &>(*event);
    if (press.key() != Qt::Key_F10 || press.modifiers() != Qt::ShiftModifier
        || press.isAutoRepeat()) {
        return false;
    }
    openContextMenu(*QApplication::focusWidget());
    return true;
}

} // namespace quenara
