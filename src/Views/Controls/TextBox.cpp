#include "TextBox.h"

#include "Clipboard.h"

#include <QFocusEvent>

namespace quenara {

TextBox::TextBox(const QString &title, QWidget *parent) : QPlainTextEdit(parent)
{
    setAccessibleName(title);
    setTabChangesFocus(true);
}

void TextBox::focusInEvent(QFocusEvent *event)
{
    QPlainTextEdit::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        selectAll();
}

void TextBox::insertFromMimeData(const QMimeData *source)
{
    // Qt's own would look at the first format of a source, which on X11 has none while nobody owns
    // the clipboard, and set one of Markdown.
    const QString text = pastedText(source);
    if (text.isEmpty())
        return;
    insertPlainText(text);
    ensureCursorVisible();
}

} // namespace quenara
