#pragma once

#include <QList>
#include <QString>

namespace quenara {

/// Which places of a stored text the characters of the text that is shown for it stand at. That one
/// may be in capitals, ends its lines in separators, and leaves out what takes no place in it:
/// spacing at the end of a line, selectors inside emoji, all after an ellipsis.
class TextOffsetMap
{
public:
    TextOffsetMap(const QString &stored, const QString &shown, bool uppercase);

    /// Of the character at \a stored or, if that is left out, of the next one that is shown.
    qsizetype shown(qsizetype stored) const;

    /// The end of the stored text at the end of the shown one.
    qsizetype stored(qsizetype shown) const;

    /// How many characters right before \a stored are left out.
    qsizetype leftOutBefore(qsizetype stored) const;

private:
    QList<qsizetype> m_origins; ///< for each character shown, its place in the stored text
    QList<qsizetype> m_ends; ///< likewise, the place behind it
    qsizetype m_length;
};

} // namespace quenara
