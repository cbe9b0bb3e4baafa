#pragma once

#include "EditedText.h"

#include <QString>

class QInputMethodEvent;

namespace quenara {

// What an event of an input method means to a text that is being edited.

/// What an input method composes at the caret, which is no part of the text yet.
struct Preedit
{
    QString text;
    qsizetype caret = 0; ///< within it

    bool operator==(const Preedit &) const = default;
};

[[nodiscard]] Preedit preeditOf(const QInputMethodEvent &event);

/// Removes the selection and the characters that \a event replaces, then inserts what it commits.
void commit(EditedText &edit, const QInputMethodEvent &event);

/// Places the caret and the anchor where \a event asks for them. False if it does not.
bool select(EditedText &edit, const QInputMethodEvent &event);

} // namespace quenara
