#include "EndTyping.h"

#include "CanvasTextLayerEditor.h"

#include <QApplication>
#include <QWidget>

namespace quenara {

void endTyping()
{
    QWidget *focused = QApplication::focusWidget();
    // That one writes what is typed at once: the next key is for it as well, not for the show.
    if (qobject_cast<CanvasTextLayerEditor *>(focused))
        return;
    if (focused && focused->testAttribute(Qt::WA_InputMethodEnabled))
        focused->clearFocus();
}

} // namespace quenara
