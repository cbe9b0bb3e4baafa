#pragma once

#include <QPainterPath>
#include <QRawFont>

namespace quenara {

/// The outline of a glyph, its origin at the left end of the baseline. Kept, as the toolkit keeps
/// its pictures of small glyphs: a font takes longer to tell an outline than it takes to fill it.
/// For the thread of the windows only.
QPainterPath glyphOutline(const QRawFont &font, quint32 glyph);

} // namespace quenara
