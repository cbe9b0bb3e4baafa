#pragma once

#include "EditedText.h"
#include "TextLayoutGeometry.h"

#include <QString>

#include <optional>

class QKeyEvent;

namespace quenara {

// What a key press means to a text that is being edited, by the customs of the platform. Each
// function returns nothing, or an empty text, for a press that means something else.

/// Gives a position in the text, seen from the caret.
using EditingTarget = qsizetype (*)(const EditedText &, const TextLayoutGeometry &);

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

[[nodiscard]] std::optional<CaretMove> caretMoveOf(const QKeyEvent &event);
[[nodiscard]] std::optional<LineMove> lineMoveOf(const QKeyEvent &event);
/// The position up to which the key removes text.
[[nodiscard]] std::optional<EditingTarget> removalOf(const QKeyEvent &event);
/// The text that the key writes.
[[nodiscard]] QString typedTextOf(const QKeyEvent &event);

} // namespace quenara
