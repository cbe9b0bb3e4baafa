#include "GlyphOutlines.h"

#include <QCoreApplication>
#include <QHash>

namespace quenara {

namespace {

/// More than the letters of a service; then it begins anew.
constexpr qsizetype outlineMaximum = 8192;

struct KnownOutlines
{
    // Fonts must not outlive the application.
    KnownOutlines() { qAddPostRoutine(forget); }

    static void forget();

    QHash<QRawFont, QHash<quint32, QPainterPath>> fonts;
    qsizetype count = 0;
};

KnownOutlines &knownOutlines()
{
    static KnownOutlines known;
    return known;
}

void KnownOutlines::forget()
{
    knownOutlines().fonts.clear();
    knownOutlines().count = 0;
}

} // namespace

QPainterPath glyphOutline(const QRawFont &font, quint32 glyph)
{
    KnownOutlines &known = knownOutlines();
    const auto ofFont = known.fonts.constFind(font);
    if (ofFont != known.fonts.cend()) {
        const auto found = ofFont->constFind(glyph);
        if (found != ofFont->cend())
            return *found;
    }
    if (known.count >= outlineMaximum)
        KnownOutlines::forget();
    const QPainterPath outline = font.pathForGlyph(glyph);
    known.fonts[font].insert(glyph, outline);
    ++known.count;
    return outline;
}

} // namespace quenara
