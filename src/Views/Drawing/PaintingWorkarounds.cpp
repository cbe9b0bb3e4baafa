#include "PaintingWorkarounds.h"

#include "DevicePixels.h"

#include <algorithm>

#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#endif

namespace quenara {

namespace {

constexpr int largestRunCount = 95; ///< of pixels that Qt fills without its threads

/// Too little to change the size that glyphs are rendered at, which Qt rounds to 1/64 of a pixel,
/// but enough for Qt to count the font as another one.
constexpr double sizeFactor = 1 + 1e-6;

#if defined(__x86_64__) && defined(__GNUC__)

__attribute__((target("avx"))) void releaseUpperHalves()
{
    _mm256_zeroupper();
}

#endif

} // namespace

#if defined(__x86_64__) && defined(__GNUC__)

void releaseVectorRegisters()
{
    static const bool hasUpperHalves = __builtin_cpu_supports("avx");
    if (hasUpperHalves)
        releaseUpperHalves();
}

#else

void releaseVectorRegisters() {}

#endif

void paintInBands(QPainter &painter, const QRectF &bounds, int runs,
                  const std::function<void()> &paint)
{
    const int height = std::max(1, largestRunCount / runs);
    const QRect covered = visiblePixels(painter, bounds);
    if (covered.isEmpty())
        return;
    if (covered.height() <= height || isOnPage(painter)) {
        paint();
        return;
    }
    for (int top = covered.top(); top <= covered.bottom(); top += height) {
        painter.save();
        clipToPixels(painter, {covered.left(), top, covered.width(), height});
        paint();
        painter.restore();
    }
}

void fillInBands(QPainter &painter, const QPainterPath &path, const QBrush &brush)
{
    constexpr int runs = 4; // the pixels of both edges, what lies between, and one for corners
    paintInBands(painter, path.boundingRect(), runs, [&] { painter.fillPath(path, brush); });
}

QRawFont ScaledFontCache::font(const QRawFont &font, double scale)
{
    const std::pair key(font, scale);
    if (const QRawFont *known = m_fonts.object(key))
        return *known;
    const QRawFont own = withOwnBitmaps(font);
    m_fonts.insert(key, new QRawFont(own));
    return own;
}

QRawFont withOwnBitmaps(const QRawFont &font)
{
    if (font.fontTable("head").isEmpty())
        return font; // boxes, which Qt draws itself
    QRawFont own = font;
    own.setPixelSize(font.pixelSize() * sizeFactor);
    return own.isValid() ? own : font;
}

QRawFont unsharedFont(const QString &fileName, double pixelSize)
{
    return {fileName, pixelSize, QFont::PreferNoHinting};
}

} // namespace quenara
