#pragma once

#include <QCache>
#include <QRawFont>

#include <utility>

namespace quenara {

/// A font of its own for every scale that a text is painted at. Qt keeps the glyph bitmaps of one
/// font for the last ten scales that it was drawn at (Qt 6.4). A show is seen at more scales than
/// that, so that Qt would render them again for every slide.
class ScaledFontCache
{
public:
    /// A font alike to \a font to the pixel, to be drawn by a painter that scales it by \a scale
    /// and transforms it in no other way.
    QRawFont font(const QRawFont &font, double scale);

private:
    static constexpr qsizetype maximum = 256; ///< more than the scales of all texts in sight

    QCache<std::pair<QRawFont, double>, QRawFont> m_fonts{maximum};
};

} // namespace quenara
