#pragma once

#include <QList>
#include <QString>
#include <QTextLayout>

namespace quenara {

/// A text as it is laid out so that its emoji are drawn in colour, where a face for that is
/// installed. What is an emoji unless told otherwise becomes a letter before the selector U+FE0E;
/// what is a letter unless told otherwise (a cross, a heart, an arrow) an emoji before U+FE0F.
struct EmojiText
{
    /// Of \a original without the selectors inside emoji: faces know joined emoji without them.
    explicit EmojiText(const QString &original);

    QString text;
    QList<QTextLayout::FormatRange> formats; ///< of its emoji
};

} // namespace quenara
