#include "Typing.h"

#include "QtWorkarounds.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>

namespace quenara {

namespace {

/// Editors of several lines write each change at once and go on taking the keys.
QLineEdit *heldBackField()
{
    return qobject_cast<QLineEdit *>(QApplication::focusWidget());
}

/// Has Tab go on from the field that was left, while the widget around it has the keyboard: it
/// would begin anew in front of the first control.
class TabFromField : public QObject
{
public:
    TabFromField(QWidget &around, QWidget &field) : QObject(&around), m_field(&field)
    {
        around.installEventFilter(this);
    }

    bool eventFilter(QObject *around, QEvent *event) override
    {
        if (event->type() == QEvent::FocusOut) {
            around->removeEventFilter(this);
            deleteLater();
        }
        const bool isTab = event->type() == QEvent::KeyPress
            && (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Tab
                || static_cast<QKeyEvent *>(event)->key() == Qt::Key_Backtab);
        if (!isTab || !m_field || !m_field->isVisible() || !m_field->isEnabled())
            return false;
        m_field->setFocus(Qt::OtherFocusReason);
        QCoreApplication::sendEvent(m_field, event);
        return true;
    }

private:
    QPointer<QWidget> m_field;
};

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
        new TabFromField(*around, field);
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
    if (QLineEdit *field = heldBackField())
        takeTyping(*field);
}

void takeTyping(QLineEdit &field)
{
    const QPointer<QLineEdit> taken = &field;
    emit field.editingFinished();
    if (taken)
        taken->setModified(false); // so that it shows what the store makes of it
}

} // namespace quenara
