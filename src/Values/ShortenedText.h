#pragma once

#include <QString>

namespace quenara {

/// \a text if it has at most \a most characters, else as much of its beginning as leaves room for
/// an ellipsis. For what shows or keeps texts that a document may make as long as it likes.
[[nodiscard]] inline QString shortened(const QString &text, qsizetype most)
{
    if (text.size() <= most)
        return text;
    const qsizetype kept = most - 1;
    return text.first(text.at(kept - 1).isHighSurrogate() ? kept - 1 : kept) + QChar(0x2026);
}

} // namespace quenara
