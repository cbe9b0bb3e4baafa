#include "EndTyping.h"

#include "CanvasTextLayerEditor.h"

#include <QApplication>
#include <QWidget>

namespace quenara {

QWidget *endTyping()
{
    QWidget *focused = QApplication::focusWidget();
    // That one writes what is typed at once: the next key is for it as well, not for the show.
    if (!focused || !focused->testAttribute(Qt::WA_InputMethodEnabled)
        || qobject_cast<CanvasTextLayerEditor *>(focused)) {
        return nullptr;
    }
    focused->clearFocus();
    return focused;
}

} // namespace quenara
