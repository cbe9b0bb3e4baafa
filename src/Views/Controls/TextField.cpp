#include "TextField.h"

#include "Typing.h"

#include <QKeyEvent>

#include <algorithm>
#include <limits>

namespace quenara {

TextField::TextField(const QString &title, QWidget *parent) : QLineEdit(parent)
{
    setAccessibleName(title);
    setMaxLength(std::numeric_limits<int>::max());
}

void TextField::showText(const QString &text)
{
    if (text == this->text())
        return;
    const int caret = hasFocus() ? cursorPosition() : 0;
    const bool selectsBackwards = caret == selectionStart();
    const int anchor = !hasSelectedText() ? caret
        : selectsBackwards                ? selectionEnd()
                                          : selectionStart();
    setText(text);
    const int end = int(text.size());
    const int start = std::min(anchor, end);
    setSelection(start, std::min(caret, end) - start);
}

void TextField::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        leaveField(*this);
        break;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void TextField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    const bool isLeft =
        event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason;
    if (isLeft)
        home(false);
}

} // namespace quenara
