#pragma once

#include "SlideDesignModels.h"
#include "TextOffsetMap.h"

#include <QList>
#include <QString>
#include <QTextLayout>

#include <limits>

namespace quenara {

/// Ends a truncated text.
inline constexpr QChar ellipsis = u'\u2026';

/// A text layer's text as it is laid out.
struct ShownText
{
    QString text; ///< its lines end in U+2028
    QList<QTextLayout::FormatRange> emoji; ///< in a face that has bitmaps instead of outlines
    QList<QTextLayout::FormatRange> scripts; ///< whose letters stand in faces of their own
    TextOffsetMap offsets; ///< between the stored text and this one
};

/// What is shown of the text that \a properties store: in capitals if they say so, every mandatory
/// break as a line separator, without the spacing before one, and its emoji in colour where a face
/// for that is installed. A character that is an emoji by default becomes a letter before the
/// selector U+FE0E. One that is a letter by default (a cross, a heart, an arrow) becomes an emoji
/// before U+FE0F. Selectors inside emoji are left out: faces know joined emoji without them. The
/// letters of a script that the program knows a family for, and the marks on them, stand in one
/// face. Of a text that is longer than \a most, that is its beginning.
[[nodiscard]] ShownText shownText(const TextElementProperties &properties,
                                  qsizetype most = std::numeric_limits<qsizetype>::max());

/// The first \a length characters of \a shown, and an ellipsis for those that follow.
[[nodiscard]] ShownText truncated(const ShownText &shown, qsizetype length);

} // namespace quenara
