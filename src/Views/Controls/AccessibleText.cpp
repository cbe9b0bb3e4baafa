#include "AccessibleText.h"

#include "AccessibleControls.h"
#include "Typing.h"

#include <QAbstractSpinBox>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>

#include <algorithm>
#include <tuple>

namespace quenara {

namespace {

/// A text, told of as it is told to input methods and changed by the events that they send: Qt's
/// own interfaces set it behind the back of whoever listens to what is typed.
class TextInterface : public QAccessibleWidget,
                      public QAccessibleTextInterface,
                      public QAccessibleEditableTextInterface
{
public:
    /// The text is edited by \a editor, which is \a control or the part of it that has the caret.
    TextInterface(QWidget &control, QWidget &editor, QAccessible::Role role)
        : QAccessibleWidget(&control, role), m_editor(&editor)
    {}

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface *>(this);
        if (type == QAccessible::EditableTextInterface)
            return static_cast<QAccessibleEditableTextInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    bool isValid() const override { return QAccessibleWidget::isValid() && m_editor; }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = asked(Qt::ImReadOnly).toBool();
        state.editable = !state.readOnly;
        state.multiLine = m_editor->inputMethodHints().testFlag(Qt::ImhMultiLine);
        state.selectableText = true;
        return state;
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? wholeText() : QAccessibleWidget::text(kind);
    }

    void setText(QAccessible::Text kind, const QString &text) override
    {
        if (kind == QAccessible::Value)
            replaceText(0, characterCount(), text);
    }

    QString text(int start, int end) const override { return wholeText().mid(start, end - start); }
    int characterCount() const override { return int(wholeText().size()); }
    int cursorPosition() const override { return asked(Qt::ImCursorPosition).toInt(); }
    int selectionCount() const override { return cursorPosition() == anchor() ? 0 : 1; }

    void selection(int /*index*/, int *start, int *end) const override
    {
        std::tie(*start, *end) = std::minmax({cursorPosition(), anchor()});
    }

    QRect characterRect(int offset) const override
    {
        return placeOf(offset).translated(m_editor->mapToGlobal(QPoint()));
    }

    int offsetAtPoint(const QPoint &point) const override
    {
        return offsetAt(m_editor->mapFromGlobal(point));
    }

    QString attributes(int /*offset*/, int *start, int *end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }

    void setCursorPosition(int position) override { select(position, position); }
    void addSelection(int start, int end) override { select(start, end); }
    void removeSelection(int /*index*/) override { setCursorPosition(cursorPosition()); }
    void setSelection(int /*index*/, int start, int end) override { select(start, end); }
    void scrollToSubstring(int start, int /*end*/) override { setCursorPosition(start); }

    void deleteText(int start, int end) override { replaceText(start, end, {}); }
    void insertText(int offset, const QString &text) override { replaceText(offset, offset, text); }

    void replaceText(int start, int end, const QString &text) override
    {
        if (state().readOnly || !isReachedByClick(*widget()))
            return;
        const int length = characterCount();
        start = std::clamp(start, 0, length);
        end = std::clamp(end, start, length);
        select(start, start);
        type(text, end - start);
        auto *line = qobject_cast<QLineEdit *>(m_editor);
        if (line && !line->hasFocus()) { // nobody would leave it
            line->home(false);
            takeTyping(*line);
        }
    }

protected:
    virtual QString wholeText() const { return asked(Qt::ImSurroundingText).toString(); }
    virtual int anchor() const { return asked(Qt::ImAnchorPosition).toInt(); }

    /// Where a character is in the editor. Input methods are told of the caret's place only: it is
    /// empty for any other \a offset.
    virtual QRect placeOf(int offset) const
    {
        return offset == cursorPosition() ? caret() : QRect();
    }
    /// The offset of what is at a place in the editor, negative if that is not known.
    virtual int offsetAt(const QPoint & /*place*/) const { return -1; }

    virtual void select(int start, int end)
    {
        if (m_editor->hasFocus())
            QGuiApplication::inputMethod()->commit();
        QInputMethodEvent event({},
                                {{QInputMethodEvent::Selection, start, end - start, QVariant()}});
        QCoreApplication::sendEvent(m_editor, &event);
    }

    /// Types \a text in the place of as many characters behind the caret. Nothing is selected.
    virtual void type(const QString &text, int replaced)
    {
        QInputMethodEvent event;
        event.setCommitString(text, 0, replaced);
        QCoreApplication::sendEvent(m_editor, &event);
    }

    QVariant asked(Qt::InputMethodQuery query) const { return m_editor->inputMethodQuery(query); }
    QRect caret() const { return asked(Qt::ImCursorRectangle).toRect(); }

private:
    QPointer<QWidget> m_editor;
};

class LineInterface : public TextInterface
{
public:
    explicit LineInterface(QLineEdit &line) : LineInterface(line, line, QAccessible::EditableText)
    {}

protected:
    LineInterface(QWidget &control, QLineEdit &line, QAccessible::Role role)
        : TextInterface(control, line, role), m_line(line)
    {}

    QRect placeOf(int offset) const override
    {
        const QString text = m_line.text();
        const QFontMetrics metrics = m_line.fontMetrics();
        const auto before = [&](int end) { return metrics.horizontalAdvance(text.left(end)); };
        const QRect caretArea = caret(); // the caret stands in its middle
        const int start = caretArea.center().x() + before(offset) - before(cursorPosition());
        return {start, caretArea.top(), before(offset + 1) - before(offset), caretArea.height()};
    }
    int offsetAt(const QPoint &place) const override { return m_line.cursorPositionAt(place); }

private:
    QLineEdit &m_line;
};

/// Several lines: input methods are told of the paragraph with the caret only.
class BoxInterface : public TextInterface
{
public:
    explicit BoxInterface(QPlainTextEdit &box)
        : TextInterface(box, box, QAccessible::EditableText), m_box(box)
    {}

    int cursorPosition() const override { return m_box.textCursor().position(); }

protected:
    QString wholeText() const override { return m_box.toPlainText(); }
    int anchor() const override { return m_box.textCursor().anchor(); }

    QRect placeOf(int offset) const override { return m_box.cursorRect(cursorAt(offset)); }
    int offsetAt(const QPoint &place) const override
    {
        return m_box.cursorForPosition(place).position();
    }

    void select(int start, int end) override
    {
        QTextCursor cursor = cursorAt(start);
        cursor.setPosition(std::clamp(end, 0, characterCount()), QTextCursor::KeepAnchor);
        m_box.setTextCursor(cursor);
    }

    void type(const QString &text, int replaced) override
    {
        QTextCursor cursor = m_box.textCursor();
        cursor.setPosition(cursor.position() + replaced, QTextCursor::KeepAnchor);
        cursor.insertText(text);
        m_box.setTextCursor(cursor);
    }

private:
    QTextCursor cursorAt(int offset) const
    {
        QTextCursor cursor(m_box.document());
        cursor.setPosition(std::clamp(offset, 0, characterCount()));
        return cursor;
    }

    QPlainTextEdit &m_box;
};

/// A number in one of Qt's own dialogs.
class SpinBoxInterface : public LineInterface, public QAccessibleValueInterface
{
public:
    SpinBoxInterface(QAbstractSpinBox &box, QLineEdit &line)
        : LineInterface(box, line, QAccessible::SpinBox)
    {}

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface *>(this)
                                                   : LineInterface::interface_cast(type);
    }

    QVariant currentValue() const override { return widget()->property("value"); }
    QVariant minimumValue() const override { return widget()->property("minimum"); }
    QVariant maximumValue() const override { return widget()->property("maximum"); }
    QVariant minimumStepSize() const override { return widget()->property("singleStep"); }

    void setCurrentValue(const QVariant &value) override
    {
        if (!state().readOnly && isReachedByClick(*widget()))
            widget()->setProperty("value", value);
    }
};

} // namespace

QAccessibleInterface *makeTextInterface(QWidget &widget)
{
    if (auto *box = qobject_cast<QAbstractSpinBox *>(&widget)) {
        auto *line = box->findChild<QLineEdit *>();
        return line ? new SpinBoxInterface(*box, *line) : nullptr;
    }
    if (auto *line = qobject_cast<QLineEdit *>(&widget))
        return new LineInterface(*line);
    if (auto *box = qobject_cast<QPlainTextEdit *>(&widget))
        return new BoxInterface(*box);
    const bool isOther = qobject_cast<QComboBox *>(&widget) || qobject_cast<QLabel *>(&widget);
    return takesText(&widget) && !isOther
        ? new TextInterface(widget, widget, QAccessible::EditableText)
        : nullptr;
}

} // namespace quenara
