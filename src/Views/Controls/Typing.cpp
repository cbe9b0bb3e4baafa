#include "Typing.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>

namespace quenara {

bool takesText(const QObject *receiver)
{
    // Item views ask for an input method on behalf of their editors, which have the focus then.
    const auto *widget = qobject_cast<const QWidget *>(receiver);
    return widget && widget->testAttribute(Qt::WA_InputMethodEnabled)
        && !qobject_cast<const QAbstractItemView *>(widget);
}

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

QWidget *endTyping()
{
    // Editors of several lines write each change at once and go on taking the keys.
    auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    if (field)
        leaveField(*field);
    return field;
}

} // namespace quenara
