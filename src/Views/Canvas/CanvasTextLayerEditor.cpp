#include "CanvasTextLayerEditor.h"

#include "Clipboard.h"
#include "DevicePixels.h"
#include "EditedTextView.h"
#include "EditingKeys.h"
#include "ThemeColors.h"

#include <QAccessible>
#include <QApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPainter>
#include <QStyleHints>

namespace quenara {

CanvasTextLayerEditor::CanvasTextLayerEditor(WorkspaceStore &store, RenderCaches &caches,
                                             QWidget *parent)
    : QWidget(parent), m_store(store), m_caches(caches)
{
    setObjectName(QStringLiteral("canvasTextLayerEditor"));
    setAttribute(Qt::WA_InputMethodEnabled); // before the name, by which readers meet a text
    setInputMethodHints(Qt::ImhMultiLine);
    setAccessibleName(QStringLiteral("Layer text"));
    setFocusPolicy(Qt::ClickFocus);
    setCursor(Qt::IBeamCursor);
    // The menu bar gives the keyboard back. An open menu does not even take the focus.
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget *, const QWidget *now) {
        if (isVisible() && now != this && !qobject_cast<const QMenuBar *>(now))
            emit left();
    });
    hide();
}

void CanvasTextLayerEditor::setLayer(const SlideElement &layer, const QPointF &slideTopLeft,
                                     double scale)
{
    if (m_edit.text != layer.text->text) {
        m_preedit = {};
        m_edit.replace(layer.text->text);
    }
    m_text = *layer.text;
    m_placement = {.frame = layer.frame,
                   .rotation = layer.rotation,
                   .padding = layer.text->padding,
                   .slideTopLeft = slideTopLeft,
                   .scale = scale};
    const QPolygonF outline = m_placement.outline(EditedTextView::outlineMargin);
    const QRectF bounds = outline.boundingRect();
    setGeometry(reachableRect(bounds));
    // Qt makes a region row by row and takes seconds for the rows of one that is mostly out of
    // sight. The editor of such a layer takes the clicks beside its plate, too.
    const bool isReachable = QRectF(geometry()).contains(bounds);
    if (m_placement.isTurned() && isReachable) {
        setMask(QRegion(outline.translated(-pos()).toPolygon()));
    } else {
        clearMask();
    }
    layOut();
}

void CanvasTextLayerEditor::beginEditing(const QPointF &point)
{
    m_edit.moveTo(positionAt(point - pos()));
    show();
    setFocus(Qt::OtherFocusReason);
}

void CanvasTextLayerEditor::endEditing()
{
    stopTyping();
    m_preedit = {};
    hide();
}

/// What is typed from now on is another undo step.
void CanvasTextLayerEditor::stopTyping()
{
    m_store.endGesture(m_typing);
}

void CanvasTextLayerEditor::layOut()
{
    m_shownText = m_text;
    m_shownText.text = m_edit.text;
    m_shownText.text.insert(m_edit.caret, m_preedit.text);
    m_shownText.backgroundFill = std::nullopt;
    m_places.emplace(m_shownText, QSizeF(m_placement.frame.width, m_placement.frame.height));
    showCaret();
}

/// Shows the caret at once. It blinks from then on.
void CanvasTextLayerEditor::showCaret()
{
    m_isCaretOn = hasFocus();
    const int flashTime = QGuiApplication::styleHints()->cursorFlashTime();
    if (hasFocus() && flashTime > 0) {
        m_blinking.start(flashTime / 2, this);
    } else {
        m_blinking.stop();
    }
    updateMicroFocus();
    update();
}

QRectF CanvasTextLayerEditor::caretRect() const
{
    return scaledCaret(*m_places, m_edit.caret + m_preedit.caret, m_placement.scale);
}

/// Maps points from the top left of the box to points of the widget.
QTransform CanvasTextLayerEditor::fromBox() const
{
    return m_placement.fromBox() * QTransform::fromTranslate(-x(), -y());
}

qsizetype CanvasTextLayerEditor::positionAt(const QPointF &point) const
{
    const double scale = m_placement.scale;
    return scale > 0 ? m_places->positionAt(fromBox().inverted().map(point) / scale) : m_edit.caret;
}

void CanvasTextLayerEditor::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.translate(-pos());
    EditedTextView{.text = m_shownText,
                   .placement = m_placement,
                   .edit = m_edit,
                   .preedit = m_preedit,
                   .places = *m_places,
                   .showsCaret = m_isCaretOn}
        .paint(painter, themeOf(*this), m_caches);
}

void CanvasTextLayerEditor::keyPressEvent(QKeyEvent *event)
{
    if (const Action action = actionFor(*event)) {
        action();
    } else {
        event->ignore();
    }
}

/// What the key does; empty if it does nothing here.
CanvasTextLayerEditor::Action CanvasTextLayerEditor::actionFor(const QKeyEvent &event)
{
    for (const auto find : {&CanvasTextLayerEditor::movementFor, &CanvasTextLayerEditor::changeFor,
                            &CanvasTextLayerEditor::commandFor}) {
        if (Action action = (this->*find)(event))
            return action;
    }
    return {};
}

CanvasTextLayerEditor::Action CanvasTextLayerEditor::movementFor(const QKeyEvent &event)
{
    if (const auto move = caretMoveOf(event))
        return [this, move = *move] { moveTo(move.target(m_edit, *m_places), move.selecting); };
    if (const auto move = lineMoveOf(event))
        return [this, move = *move] { moveByLines(move.lines, move.selecting); };
    return {};
}

CanvasTextLayerEditor::Action CanvasTextLayerEditor::changeFor(const QKeyEvent &event)
{
    if (const auto target = removalOf(event)) {
        return [this, target = *target] {
            change([&](EditedText &edit) { edit.removeTo(target(edit, *m_places)); });
        };
    }
    const QString typed = typedTextOf(event);
    if (typed.isEmpty())
        return {};
    return [this, typed] { change([&](EditedText &edit) { edit.insert(typed); }); };
}

CanvasTextLayerEditor::Action CanvasTextLayerEditor::commandFor(const QKeyEvent &event)
{
    if (event.matches(QKeySequence::Cancel))
        return [this] { emit left(); };
    if (event.matches(QKeySequence::SelectAll)) {
        return [this] {
            m_edit.selectAll();
            showCaret();
        };
    }
    if (event.matches(QKeySequence::Copy))
        return [this] { copySelection(); };
    if (event.matches(QKeySequence::Cut)) {
        return [this] {
            copySelection();
            change([](EditedText &edit) { edit.removeTo(edit.caret); });
        };
    }
    if (event.matches(QKeySequence::Paste))
        return [this] { paste(QClipboard::Clipboard); };
    return {};
}

void CanvasTextLayerEditor::moveTo(qsizetype position, Selecting selecting)
{
    m_edit.moveTo(position, selecting);
    showMovedCaret();
}

void CanvasTextLayerEditor::showMovedCaret()
{
    m_column.reset();
    showCaret();
    QAccessibleTextCursorEvent moved(this, int(m_edit.caret));
    QAccessible::updateAccessibility(&moved);
}

void CanvasTextLayerEditor::moveByLines(int lines, Selecting selecting)
{
    const int line = m_places->lineOf(m_edit.caret) + lines;
    const double column = m_column.value_or(m_places->caret(m_edit.caret).x());
    if (line < 0) {
        moveTo(0, selecting);
    } else if (line >= m_places->lineCount()) {
        moveTo(m_edit.text.size(), selecting);
    } else {
        moveTo(m_places->positionInLine(line, column), selecting);
    }
    m_column = column;
}

void CanvasTextLayerEditor::change(const std::function<void(EditedText &)> &edit)
{
    m_column.reset();
    const QString before = m_edit.text;
    edit(m_edit);
    if (m_edit.text == before) {
        layOut();
        return;
    }
    QAccessibleTextUpdateEvent typed(this, 0, before, m_edit.text);
    QAccessible::updateAccessibility(&typed);
    if (!m_store.isGestureOpen(m_typing))
        m_typing = m_store.beginGesture();
    // The canvas answers the store's change with setLayer().
    m_store.updateSelectedElement([text = m_edit.text](SlideElement &element) {
        if (element.text)
            element.text->text = text;
    });
}

void CanvasTextLayerEditor::paste(QClipboard::Mode mode)
{
    const QString text = pastedText(mode);
    if (!text.isEmpty())
        change([&](EditedText &edit) { edit.insert(text); });
}

void CanvasTextLayerEditor::copySelection()
{
    if (m_edit.hasSelection())
        QGuiApplication::clipboard()->setText(m_edit.selectedText());
}

void CanvasTextLayerEditor::inputMethodEvent(QInputMethodEvent *event)
{
    const Preedit preedit = preeditOf(*event);
    const bool isInput = !event->commitString().isEmpty() || event->replacementLength() > 0
        || preedit.text != m_preedit.text;
    m_preedit = preedit;
    change([&](EditedText &edit) {
        if (isInput)
            commit(edit, *event);
    });
    if (select(m_edit, *event))
        showMovedCaret();
    event->accept();
}

QVariant CanvasTextLayerEditor::inputMethodQuery(Qt::InputMethodQuery query) const
{
    switch (query) {
    case Qt::ImCursorRectangle:
        return reachableRect(fromBox().mapRect(caretRect()));
    case Qt::ImCursorPosition:
        return m_edit.caret;
    case Qt::ImAnchorPosition:
        return m_edit.anchor;
    case Qt::ImSurroundingText:
        return m_edit.text;
    case Qt::ImCurrentSelection:
        return m_edit.selectedText();
    default:
        return QWidget::inputMethodQuery(query);
    }
}

void CanvasTextLayerEditor::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        QGuiApplication::inputMethod()->commit();
        const bool extends = event->modifiers().testFlag(Qt::ShiftModifier);
        moveTo(positionAt(event->position()), extends ? Selecting::yes : Selecting::no);
    }
}

void CanvasTextLayerEditor::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        moveTo(positionAt(event->position()), Selecting::yes);
}

void CanvasTextLayerEditor::mouseReleaseEvent(QMouseEvent *event)
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    if (!clipboard->supportsSelection())
        return;
    if (event->button() == Qt::LeftButton && m_edit.hasSelection()) {
        clipboard->setText(m_edit.selectedText(), QClipboard::Selection);
    } else if (event->button() == Qt::MiddleButton) {
        moveTo(positionAt(event->position()), Selecting::no);
        paste(QClipboard::Selection);
    }
}

void CanvasTextLayerEditor::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_edit.selectWordAt(positionAt(event->position()));
    showCaret();
}

void CanvasTextLayerEditor::focusInEvent(QFocusEvent * /*event*/)
{
    showCaret();
}

void CanvasTextLayerEditor::focusOutEvent(QFocusEvent * /*event*/)
{
    showCaret();
}

void CanvasTextLayerEditor::timerEvent(QTimerEvent * /*event*/)
{
    m_isCaretOn = !m_isCaretOn;
    update();
}

/// Tab is a character here.
bool CanvasTextLayerEditor::focusNextPrevChild(bool /*next*/)
{
    return false;
}

} // namespace quenara
