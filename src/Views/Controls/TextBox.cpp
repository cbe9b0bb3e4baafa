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
    // Qt would read the first format of the source, even if it has none, as on X11 while nobody
    // owns the clipboard. It would also set Markdown as rich text.
    const QString text = pastedText(source);
    if (text.isEmpty())
        return;
    insertPlainText(text);
    ensureCursorVisible();
}

} // namespace quenara
