#include "EditingKeys.h"

#include <QKeyEvent>

#include <array>

namespace quenara {

namespace {

using Selecting = EditedText::Selecting;

struct Movement
{
    QKeySequence::StandardKey move;
    QKeySequence::StandardKey select;
    EditingTarget target;
};

constexpr EditingTarget startOfText = [](const EditedText &, const TextLayoutGeometry &) {
    return qsizetype(0);
};
constexpr EditingTarget endOfText = [](const EditedText &edit, const TextLayoutGeometry &) {
    return edit.text.size();
};
constexpr EditingTarget endOfLine = [](const EditedText &edit, const TextLayoutGeometry &places) {
    return places.endOfLine(places.lineOf(edit.caret));
};

constexpr auto movements = std::to_array<Movement>({
    {QKeySequence::MoveToNextChar, QKeySequence::SelectNextChar,
     [](const EditedText &edit, const TextLayoutGeometry &) {
         return edit.text.isRightToLeft() ? edit.previousCharacter() : edit.nextCharacter();
     }},
    {QKeySequence::MoveToPreviousChar, QKeySequence::SelectPreviousChar,
     [](const EditedText &edit, const TextLayoutGeometry &) {
         return edit.text.isRightToLeft() ? edit.nextCharacter() : edit.previousCharacter();
     }},
    {QKeySequence::MoveToNextWord, QKeySequence::SelectNextWord,
     [](const EditedText &edit, const TextLayoutGeometry &) { return edit.nextWord(); }},
    {QKeySequence::MoveToPreviousWord, QKeySequence::SelectPreviousWord,
     [](const EditedText &edit, const TextLayoutGeometry &) { return edit.previousWord(); }},
    {QKeySequence::MoveToStartOfLine, QKeySequence::SelectStartOfLine,
     [](const EditedText &edit, const TextLayoutGeometry &places) {
         return places.startOfLine(places.lineOf(edit.caret));
     }},
    {QKeySequence::MoveToEndOfLine, QKeySequence::SelectEndOfLine, endOfLine},
    {QKeySequence::MoveToStartOfBlock, QKeySequence::SelectStartOfBlock,
     [](const EditedText &edit, const TextLayoutGeometry &) { return edit.startOfParagraph(); }},
    {QKeySequence::MoveToEndOfBlock, QKeySequence::SelectEndOfBlock,
     [](const EditedText &edit, const TextLayoutGeometry &) { return edit.endOfParagraph(); }},
    {QKeySequence::MoveToStartOfDocument, QKeySequence::SelectStartOfDocument, startOfText},
    {QKeySequence::MoveToEndOfDocument, QKeySequence::SelectEndOfDocument, endOfText},
    {QKeySequence::MoveToPreviousPage, QKeySequence::SelectPreviousPage, startOfText},
    {QKeySequence::MoveToNextPage, QKeySequence::SelectNextPage, endOfText},
});

struct Removal
{
    QKeySequence::StandardKey key;
    EditingTarget target;
};

constexpr auto removals = std::to_array<Removal>({
    {QKeySequence::Delete,
     [](const EditedText &edit, const TextLayoutGeometry &) { return edit.nextCharacter(); }},
    {QKeySequence::Backspace,
     [](const EditedText &edit, const TextLayoutGeometry &) { return edit.previousCharacter(); }},
    {QKeySequence::DeleteEndOfWord,
     [](const EditedText &edit, const TextLayoutGeometry &) { return edit.nextWord(); }},
    {QKeySequence::DeleteStartOfWord,
     [](const EditedText &edit, const TextLayoutGeometry &) { return edit.previousWord(); }},
    {QKeySequence::DeleteEndOfLine, endOfLine},
});

/// Some platforms give the standard Backspace no key sequence, or none with Shift.
bool isBackspace(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Backspace && !(event.modifiers() & ~Qt::ShiftModifier);
}

/// Whether the text of a key press is to be written. Else the press is a command.
bool isTyped(const QKeyEvent &event)
{
    const QString text = event.text();
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (text.isEmpty() || modifiers == Qt::ControlModifier || modifiers == Qt::AltModifier
        || modifiers == (Qt::ControlModifier | Qt::ShiftModifier))
        return false;
    const QChar first = text.front();
    return first.isPrint() || first.category() == QChar::Other_Format || first.isSurrogate()
        || first.category() == QChar::Other_PrivateUse || first == u'\t';
}

} // namespace

std::optional<CaretMove> caretMoveOf(const QKeyEvent &event)
{
    for (const Movement &movement : movements) {
        if (event.matches(movement.select))
            return CaretMove{movement.target, Selecting::yes};
        if (event.matches(movement.move))
            return CaretMove{movement.target, Selecting::no};
    }
    return std::nullopt;
}

std::optional<LineMove> lineMoveOf(const QKeyEvent &event)
{
    if (event.matches(QKeySequence::MoveToNextLine))
        return LineMove{1, Selecting::no};
    if (event.matches(QKeySequence::MoveToPreviousLine))
        return LineMove{-1, Selecting::no};
    if (event.matches(QKeySequence::SelectNextLine))
        return LineMove{1, Selecting::yes};
    if (event.matches(QKeySequence::SelectPreviousLine))
        return LineMove{-1, Selecting::yes};
    return std::nullopt;
}

std::optional<EditingTarget> removalOf(const QKeyEvent &event)
{
    for (const Removal &removal : removals) {
        if (event.matches(removal.key)
            || (removal.key == QKeySequence::Backspace && isBackspace(event))) {
            return removal.target;
        }
    }
    return std::nullopt;
}

QString typedTextOf(const QKeyEvent &event)
{
    const bool isBreak = event.matches(QKeySequence::InsertParagraphSeparator)
        || event.matches(QKeySequence::InsertLineSeparator);
    if (isBreak)
        return QStringLiteral("\n");
    return isTyped(event) ? event.text() : QString();
}

} // namespace quenara
