#include "EndTyping.h"

#include "CanvasTextLayerEditor.h"
#include "LeaveField.h"

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
    leaveField(*focused);
    return focused;
}

} // namespace quenara
