#include "CanvasTextLayerEditor.h"

#include "CanvasTextInterface.h"
#include "Clipboard.h"
#include "EditingKeys.h"
#include "RoundedShapes.h"
#include "TextElementRenderView.h"
#include "ThemeColors.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleHints>

#include <algorithm>
#include <cmath>

namespace quenara {

namespace {

// Points
constexpr double leastPadding = 4;
constexpr double cornerRadius = 10;
constexpr double outlineWidth = 2;
constexpr double caretWidth = 2;
constexpr double preeditLineWidth = 1;

/// The theme's input colour or, where letters of \a text cannot be read on that, the other theme's:
/// slides keep their colours in both schemes.
QColor inputColor(const ZelvoTheme &theme, const QColor &text)
{
    constexpr double leastContrast = 2;
    const QColor opaque = QColor(text.rgb());
    const ZelvoTheme &other =
        theme == ZelvoTheme::dark() ? ZelvoTheme::light() : ZelvoTheme::dark();
    return contrast(opaque, theme.inputBackground) < leastContrast ? other.inputBackground
                                                                   : theme.inputBackground;
}

} // namespace

CanvasTextLayerEditor::CanvasTextLayerEditor(WorkspaceStore &store, QWidget *parent)
    : QWidget(parent), m_store(store)
{
    setObjectName(QStringLiteral("canvasTextLayerEditor"));
    makeCanvasTextReadable();
    setAccessibleName(QStringLiteral("Layer text"));
    setAttribute(Qt::WA_InputMethodEnabled);
    setInputMethodHints(Qt::ImhMultiLine);
    setFocusPolicy(Qt::ClickFocus);
    setCursor(Qt::IBeamCursor);
    hide();
}

void CanvasTextLayerEditor::setLayer(const SlideElement &layer, const QPointF &slideTopLeft,
                                     double scale)
{
    if (m_edit.text != layer.text->text) {
        m_preedit.clear();
        m_edit.replace(layer.text->text);
    }
    m_layer = layer;
    m_slideTopLeft = slideTopLeft;
    m_scale = scale;

    const double around = outlineWidth / 2;
    QTransform turn;
    turn.translate(plate().center().x(), plate().center().y());
    turn.rotate(std::fmod(m_layer.rotation, 360));
    turn.translate(-plate().center().x(), -plate().center().y());
    const QPolygonF outline = turn.map(plate().adjusted(-around, -around, around, around));
    setGeometry(outline.boundingRect().toAlignedRect());
    if (turn.isIdentity()) {
        clearMask();
    } else {
        setMask(QRegion(outline.translated(-pos()).toPolygon()));
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
    m_preedit.clear();
    hide();
}

/// What is typed from now on is another step.
void CanvasTextLayerEditor::stopTyping()
{
    m_store.endGesture(m_typing);
}

TextElementProperties CanvasTextLayerEditor::shownText() const
{
    TextElementProperties text = *m_layer.text;
    text.text = m_edit.text;
    text.text.insert(m_edit.caret, m_preedit);
    text.backgroundFill = std::nullopt;
    return text;
}

void CanvasTextLayerEditor::layOut()
{
    m_places.emplace(shownText(), QSizeF(m_layer.frame.width, m_layer.frame.height));
    showCaret();
}

/// Lit, from now on blinking again.
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

/// The layer's box in the parent's coordinates before its rotation.
QRectF CanvasTextLayerEditor::box() const
{
    const CanvasFrame &frame = m_layer.frame;
    return {m_slideTopLeft + QPointF(frame.x, frame.y) * m_scale,
            QSizeF(frame.width, frame.height) * m_scale};
}

/// What the text is edited on. It leaves some room around the text where the layer's padding is
/// less, so that the text need not move.
QRectF CanvasTextLayerEditor::plate() const
{
    const double around = std::max(0.0, leastPadding - m_layer.text->padding * m_scale);
    QRectF plate = box().adjusted(-around, -around, around, around);
    plate.setSize(plate.size().expandedTo({2 * leastPadding, 2 * leastPadding}));
    return plate;
}

/// From points right and down of the layer's top left.
QTransform CanvasTextLayerEditor::toWidget() const
{
    const QPointF half(box().width() / 2, box().height() / 2);
    QTransform transform;
    transform.translate(box().center().x() - x(), box().center().y() - y());
    transform.rotate(std::fmod(m_layer.rotation, 360));
    transform.translate(-half.x(), -half.y());
    return transform;
}

QRectF CanvasTextLayerEditor::caretRect() const
{
    const QRectF caret = m_places->caret(m_edit.caret + m_preeditCaret);
    return {caret.x() * m_scale - caretWidth / 2, caret.y() * m_scale, caretWidth,
            caret.height() * m_scale};
}

qsizetype CanvasTextLayerEditor::positionAt(const QPointF &point) const
{
    return m_scale > 0 ? m_places->positionAt(toWidget().inverted().map(point) / m_scale)
                       : m_edit.caret;
}

void CanvasTextLayerEditor::paintEvent(QPaintEvent * /*event*/)
{
    const ZelvoTheme &theme = themeOf(*this);
    const auto scaled = [this](const QRectF &piece) {
        return QRectF(piece.topLeft() * m_scale, piece.size() * m_scale);
    };
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing
                           | QPainter::SmoothPixmapTransform);
    painter.setTransform(toWidget());
    const QRectF base = plate().translated(-box().topLeft());
    const QPainterPath outline = continuousRoundedRect(base, cornerRadius);
    painter.fillPath(outline, inputColor(theme, m_layer.text->textColor.toColor()));

    for (const QRectF &piece : m_places->pieces(m_edit.selectionStart(), m_edit.selectionEnd()))
        painter.fillRect(scaled(piece), theme.selection);
    painter.setPen(Qt::NoPen);
    TextElementRenderView{shownText(), m_scale}.paint(painter, QRectF(QPointF(), box().size()),
                                                      &m_places->block());
    for (const QRectF &piece : m_places->pieces(m_edit.caret, m_edit.caret + m_preedit.size())) {
        QRectF line = scaled(piece);
        line.setTop(line.bottom() - preeditLineWidth);
        painter.fillRect(line, theme.accent);
    }
    if (m_isCaretOn)
        painter.fillRect(caretRect(), theme.accent);

    painter.strokePath(outline, QPen(theme.accent, outlineWidth));
}

void CanvasTextLayerEditor::keyPressEvent(QKeyEvent *event)
{
    if (const Action action = actionFor(*event)) {
        action();
    } else {
        event->ignore();
    }
}

/// What a key does; empty if nothing.
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
        return [this] { emit escapePressed(); };
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
    m_column.reset();
    m_edit.moveTo(position, selecting);
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
    // What the store then has comes back by setLayer().
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
    const bool isInput = !event->commitString().isEmpty() || event->replacementLength() > 0
        || event->preeditString() != m_preedit;
    m_preedit = event->preeditString();
    m_preeditCaret = m_preedit.size();
    for (const QInputMethodEvent::Attribute &attribute : event->attributes()) {
        if (attribute.type == QInputMethodEvent::Cursor)
            m_preeditCaret = attribute.start;
    }
    change([&](EditedText &edit) {
        if (!isInput)
            return;
        edit.removeTo(edit.caret);
        const qsizetype start =
            std::clamp<qsizetype>(edit.caret + event->replacementStart(), 0, edit.text.size());
        const qsizetype length =
            std::clamp<qsizetype>(event->replacementLength(), 0, edit.text.size() - start);
        if (length > 0) {
            edit.moveTo(start);
            edit.removeTo(start + length);
        }
        edit.insert(event->commitString());
    });
    for (const QInputMethodEvent::Attribute &attribute : event->attributes()) {
        if (attribute.type == QInputMethodEvent::Selection) {
            moveTo(m_edit.placeFrom(attribute.start), Selecting::no);
            moveTo(m_edit.placeFrom(qsizetype(attribute.start) + attribute.length), Selecting::yes);
        }
    }
    event->accept();
}

QVariant CanvasTextLayerEditor::inputMethodQuery(Qt::InputMethodQuery query) const
{
    switch (query) {
    case Qt::ImCursorRectangle:
        return toWidget().mapRect(caretRect()).toAlignedRect();
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

void CanvasTextLayerEditor::focusOutEvent(QFocusEvent *event)
{
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        stopTyping();
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
