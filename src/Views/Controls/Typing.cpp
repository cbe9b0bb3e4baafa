#include "Typing.h"

#include "QtWorkarounds.h"

#include <QApplication>
#include <QLineEdit>

namespace quenara {

bool takesText(const QObject *receiver)
{
    const auto *widget = qobject_cast<const QWidget *>(receiver);
    return widget && wantsInputMethod(*widget);
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
