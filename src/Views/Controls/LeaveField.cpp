#include "LeaveField.h"

#include <QWidget>

namespace quenara {

void leaveField(QWidget &field)
{
    QWidget *around = field.parentWidget();
    while (around && around->focusPolicy() != Qt::ClickFocus)
        around = around->isWindow() ? nullptr : around->parentWidget();
    if (around) {
        around->setFocus();
    } else {
        field.clearFocus();
    }
}

} // namespace quenara
