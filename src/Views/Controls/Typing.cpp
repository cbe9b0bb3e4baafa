#include "Typing.h"

#include "QtWorkarounds.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>

namespace quenara {

namespace {

/// Editors of several lines write each change at once and go on taking the keys.
QLineEdit *heldBackField()
{
    return qobject_cast<QLineEdit *>(QApplication::focusWidget());
}

} // namespace

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

void endTyping()
{
    if (QLineEdit *field = heldBackField())
        leaveField(*field);
}

void takeTyping()
{
    const QPointer<QLineEdit> field = heldBackField();
    if (!field)
        return;
    emit field->editingFinished();
    if (field)
        field->setModified(false); // so that it shows what the store makes of it
}

} // namespace quenara
