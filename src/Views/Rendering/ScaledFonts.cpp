#include "ScaledFonts.h"

#include "KeptUntilExit.h"

#include <QCache>

#include <utility>

namespace quenara {

namespace {

/// More than the scales of all texts in sight.
constexpr qsizetype fontMaximum = 256;

/// Too little to change the size that glyphs are made for, which is in whole 1/64 pixels; enough
/// for the font to count as another one.
constexpr double sizeFactor = 1 + 1e-6;

struct ScaledFonts
{
    QCache<std::pair<QRawFont, double>, QRawFont> usedLast{fontMaximum};
};

} // namespace

QRawFont fontForScale(const QRawFont &font, double scale)
{
    auto &fonts = keptUntilExit<ScaledFonts>().usedLast;
    const std::pair key(font, scale);
    if (const QRawFont *known = fonts.object(key))
        return *known;
    // The boxes that stand for letters of no font are drawn alike at every scale.
    if (font.fontTable("head").isEmpty())
        return font;
    QRawFont own = font;
    own.setPixelSize(font.pixelSize() * sizeFactor);
    if (!own.isValid())
        return font;
    fonts.insert(key, new QRawFont(own));
    return own;
}

} // namespace quenara
