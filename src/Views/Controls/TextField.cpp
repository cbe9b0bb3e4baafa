#include "TextField.h"

#include "ShortenedText.h"
#include "Typing.h"

#include <QKeyEvent>

#include <algorithm>

namespace quenara {

void showLine(QLineEdit &field, const QString &text)
{
    field.setReadOnly(text.size() > longestLine);
    field.setText(shortened(text, longestLine));
}

TextField::TextField(const QString &title, QWidget *parent) : QLineEdit(parent)
{
    setAccessibleName(title);
    setMaxLength(longestLine);
}

void TextField::showText(const QString &text)
{
    if (isReadOnly() == (text.size() > longestLine) && shortened(text, longestLine) == this->text())
        return;
    const int caret = hasFocus() ? cursorPosition() : 0;
    const bool selectsBackwards = caret == selectionStart();
    const int anchor = !hasSelectedText() ? caret
        : selectsBackwards                ? selectionEnd()
                                          : selectionStart();
    showLine(*this, text);
    const int end = int(this->text().size());
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

void TextField::dropEvent(QDropEvent *event)
{
    QLineEdit::dropEvent(event);
    if (!hasFocus())
        takeTyping(*this);
}

} // namespace quenara
