#pragma once

#include <QString>

namespace quenara {

/// \a name as a part of a sentence that a dialog shows: of a long one the beginning, in one line,
/// and without the marks by which a name could turn the direction of the words around it.
[[nodiscard]] QString nameInSentence(const QString &name);

} // namespace quenara
