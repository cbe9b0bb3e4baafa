#pragma once

#include "EditedText.h"
#include "TextPlaces.h"

#include <QString>

#include <optional>

class QKeyEvent;

namespace quenara {

// What a key means to a text that is being edited, as the platform has it; nothing or an empty text
// where it means something else.

/// A place to go to from where the caret stands, as an index into the text.
using EditingTarget = qsizetype (*)(const EditedText &, const TextPlaces &);

struct CaretMove
{
    EditingTarget target;
    EditedText::Selecting selecting;
};

struct LineMove
{
    int lines; ///< downwards
    EditedText::Selecting selecting;
};

std::optional<CaretMove> caretMoveOf(const QKeyEvent &event);
std::optional<LineMove> lineMoveOf(const QKeyEvent &event);
/// Up to where the key removes what is written.
std::optional<EditingTarget> removalOf(const QKeyEvent &event);
/// What the key writes.
QString typedTextOf(const QKeyEvent &event);

} // namespace quenara
