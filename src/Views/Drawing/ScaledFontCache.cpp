#include "ScaledFontCache.h"

namespace quenara {

namespace {

/// Too little to change the size that glyphs are rendered for, which Qt rounds to 1/64 of a pixel,
/// but enough for Qt to count the font as another one.
constexpr double sizeFactor = 1 + 1e-6;

} // namespace

QRawFont ScaledFontCache::font(const QRawFont &font, double scale)
{
    const std::pair key(font, scale);
    if (const QRawFont *known = m_fonts.object(key))
        return *known;
    // The boxes that stand for letters of no font are drawn alike at every scale.
    if (font.fontTable("head").isEmpty())
        return font;
    QRawFont own = font;
    own.setPixelSize(font.pixelSize() * sizeFactor);
    if (!own.isValid())
        return font;
    m_fonts.insert(key, new QRawFont(own));
    return own;
}

} // namespace quenara
