#pragma once

#include <QRawFont>

namespace quenara {

/// \a font, to be drawn in by a painter that scales it by \a scale and nothing else. The toolkit
/// keeps pictures of a font's glyphs for the last ten scales that it was drawn at (Qt 6.4), and a
/// show is seen at more than that: it would make them anew for every slide. Each scale has a font
/// of its own here, alike to the pixel. For the thread of the windows only.
QRawFont fontForScale(const QRawFont &font, double scale);

} // namespace quenara
