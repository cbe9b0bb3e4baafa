#include "GlyphOutlines.h"

#include "KeptUntilExit.h"

#include <QHash>

namespace quenara {

namespace {

/// More than the letters of a service; then it begins anew.
constexpr qsizetype outlineMaximum = 8192;

struct KnownOutlines
{
    QHash<QRawFont, QHash<quint32, QPainterPath>> fonts;
    qsizetype count = 0;
};

} // namespace

QPainterPath glyphOutline(const QRawFont &font, quint32 glyph)
{
    auto &known = keptUntilExit<KnownOutlines>();
    const auto ofFont = known.fonts.constFind(font);
    if (ofFont != known.fonts.cend()) {
        const auto found = ofFont->constFind(glyph);
        if (found != ofFont->cend())
            return *found;
    }
    if (known.count >= outlineMaximum)
        known = {};
    const QPainterPath outline = font.pathForGlyph(glyph);
    known.fonts[font].insert(glyph, outline);
    ++known.count;
    return outline;
}

} // namespace quenara
