#include "GlyphOutlineCache.h"

namespace quenara {

QPainterPath GlyphOutlineCache::outline(const QRawFont &font, quint32 glyph)
{
    const auto ofFont = m_fonts.constFind(font);
    if (ofFont != m_fonts.cend()) {
        const auto found = ofFont->constFind(glyph);
        if (found != ofFont->cend())
            return *found;
    }
    if (m_count >= m_maximum) {
        m_fonts.clear();
        m_count = 0;
    }
    const QPainterPath outline = font.pathForGlyph(glyph);
    m_fonts[font].insert(glyph, outline);
    ++m_count;
    return outline;
}

} // namespace quenara
