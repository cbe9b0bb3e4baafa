#pragma once

#include <QList>

namespace quenara {

/// Maps offsets into a stored text to offsets into the text that is shown for it, and back. The
/// shown text may have more characters (a capital of two letters) and may leave some out: spacing
/// at the end of a line, selectors inside emoji, all after an ellipsis.
class TextOffsetMap
{
public:
    /// Appends \a count characters to the shown text that stand for the stored ones from \a start
    /// up to \a end, which lie behind all that was appended before.
    void append(qsizetype count, qsizetype start, qsizetype end);

    /// Sets the length of the stored text, whose end lies at the end of the shown one.
    void setStoredLength(qsizetype length) { m_storedLength = length; }

    /// The map of a shown text that ends in an ellipsis after its first \a length characters. The
    /// ellipsis stands for the character at \a next, if there is one.
    [[nodiscard]] TextOffsetMap truncated(qsizetype length, qsizetype next) const;

    /// The shown offset of the character at \a stored or, if it is left out, of the next one shown.
    [[nodiscard]] qsizetype shown(qsizetype stored) const;

    /// The stored offset of the character at \a shown.
    [[nodiscard]] qsizetype stored(qsizetype shown) const;

    /// How many stored characters right before \a stored are left out.
    [[nodiscard]] qsizetype leftOutBefore(qsizetype stored) const;

private:
    // For each character shown, where the stored one that it stands for begins and ends.
    QList<qsizetype> m_starts;
    QList<qsizetype> m_ends;
    qsizetype m_storedLength = 0;
};

} // namespace quenara
