#pragma once

#include <QList>
#include <QString>
#include <QTextLayout>

namespace quenara {

/// Has the emoji of \a text drawn in colour where a face for that is installed. Symbols that are
/// letters unless told otherwise (a cross, a heart, an arrow) are emoji only before the selector
/// U+FE0F.
QList<QTextLayout::FormatRange> emojiFormats(const QString &text);

} // namespace quenara
