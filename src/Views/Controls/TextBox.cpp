#include "TextBox.h"

#include "Clipboard.h"

#include <QFocusEvent>
#include <QMouseEvent>
#include <QStyle>

#include <utility>

namespace quenara {

namespace {

constexpr qsizetype longestPaste = 100'000; ///< characters; it takes Qt longer to lay out more

} // namespace

TextBox::TextBox(const QString &title, QWidget *parent) : QPlainTextEdit(parent)
{
    setAccessibleName(title);
    setTabChangesFocus(true);
    setTyping(false);
    connect(this, &TextBox::textChanged, this, [this] { m_isExample = false; });
}

void TextBox::showExample(const QString &text)
{
    setPlainText(text);
    selectAll();
    m_isExample = true;
    m_awaitsClick = true;
}

void TextBox::focusInEvent(QFocusEvent *event)
{
    QPlainTextEdit::focusInEvent(event);
    setTyping(true);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        selectAll();
}

void TextBox::focusOutEvent(QFocusEvent *event)
{
    QPlainTextEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) // the context menu is about what is selected
        setTyping(false);
}

/// Has the style sheet choose the colours of the selection: Qt paints it alike with and without the
/// focus.
void TextBox::setTyping(bool isTyping)
{
    setProperty("isTyping", isTyping);
    style()->unpolish(this);
    style()->polish(this);
}

void TextBox::mousePressEvent(QMouseEvent *event)
{
    const bool isFirst = event->button() == Qt::LeftButton && std::exchange(m_awaitsClick, false);
    if (isFirst && m_isExample) {
        selectAll();
    } else {
        QPlainTextEdit::mousePressEvent(event);
    }
}

void TextBox::insertFromMimeData(const QMimeData *source)
{
    // Qt would read the first format of the source, even if it has none, as on X11 while nobody
    // owns the clipboard. It would also set Markdown as rich text.
    const QString text = pastedText(source).left(longestPaste);
    if (text.isEmpty())
        return;
    if (m_isExample && !textCursor().hasSelection())
        selectAll();
    insertPlainText(text);
    ensureCursorVisible();
}

} // namespace quenara
