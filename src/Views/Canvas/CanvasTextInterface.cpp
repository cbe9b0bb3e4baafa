#include "CanvasTextInterface.h"

#include "CanvasTextLayerEditor.h"

#include <QAccessibleWidget>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>

#include <algorithm>
#include <tuple>

namespace quenara {

namespace {

/// Gives assistive technologies what the editor gives input methods, and moves the caret by the
/// events that input methods send.
class CanvasTextInterface : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit CanvasTextInterface(CanvasTextLayerEditor &editor)
        : QAccessibleWidget(&editor, QAccessible::EditableText), m_editor(editor)
    {}

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface *>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = true;
        state.multiLine = true;
        state.selectableText = true;
        return state;
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? wholeText() : QAccessibleWidget::text(kind);
    }

    QString text(int start, int end) const override { return wholeText().mid(start, end - start); }
    int characterCount() const override { return int(wholeText().size()); }
    int cursorPosition() const override { return place(Qt::ImCursorPosition); }
    int selectionCount() const override { return cursorPosition() == anchor() ? 0 : 1; }

    void selection(int /*index*/, int *start, int *end) const override
    {
        std::tie(*start, *end) = std::minmax({cursorPosition(), anchor()});
    }

    /// Only the place of the caret is known. The rectangle is empty for any other \a offset.
    QRect characterRect(int offset) const override
    {
        const QRect caret = m_editor.inputMethodQuery(Qt::ImCursorRectangle).toRect();
        return offset == cursorPosition() ? caret.translated(m_editor.mapToGlobal(QPoint()))
                                          : QRect();
    }

    QString attributes(int /*offset*/, int *start, int *end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }

    int offsetAtPoint(const QPoint & /*point*/) const override { return -1; }
    void setCursorPosition(int position) override { select(position, position); }
    void addSelection(int start, int end) override { select(start, end); }
    void removeSelection(int /*index*/) override { setCursorPosition(cursorPosition()); }
    void setSelection(int /*index*/, int start, int end) override { select(start, end); }
    void scrollToSubstring(int /*start*/, int /*end*/) override {} // all of it is in sight

private:
    /// Selects as an input method does.
    void select(int start, int end)
    {
        QGuiApplication::inputMethod()->commit();
        QInputMethodEvent event({},
                                {{QInputMethodEvent::Selection, start, end - start, QVariant()}});
        QCoreApplication::sendEvent(&m_editor, &event);
    }

    QString wholeText() const
    {
        return m_editor.inputMethodQuery(Qt::ImSurroundingText).toString();
    }
    int place(Qt::InputMethodQuery query) const { return m_editor.inputMethodQuery(query).toInt(); }
    int anchor() const { return place(Qt::ImAnchorPosition); }

    CanvasTextLayerEditor &m_editor;
};

QAccessibleInterface *accessibleText(const QString & /*className*/, QObject *object)
{
    auto *editor = qobject_cast<CanvasTextLayerEditor *>(object);
    return editor ? new CanvasTextInterface(*editor) : nullptr;
}

} // namespace

void makeCanvasTextReadable()
{
    QAccessible::installFactory(accessibleText);
}

} // namespace quenara
