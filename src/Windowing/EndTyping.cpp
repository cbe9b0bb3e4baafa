#include "EndTyping.h"

#include <QApplication>
#include <QWidget>

namespace quenara {

void endTyping()
{
    QWidget *focused = QApplication::focusWidget();
    if (focused && focused->testAttribute(Qt::WA_InputMethodEnabled))
        focused->clearFocus();
}

} // namespace quenara
