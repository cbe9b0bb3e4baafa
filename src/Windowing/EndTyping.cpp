#include "EndTyping.h"

#include <QApplication>
#include <QWidget>

namespace quenara {

QWidget *endTyping()
{
    QWidget *focused = QApplication::focusWidget();
    if (!focused || !focused->testAttribute(Qt::WA_InputMethodEnabled))
        return nullptr;
    focused->clearFocus();
    return focused;
}

} // namespace quenara
