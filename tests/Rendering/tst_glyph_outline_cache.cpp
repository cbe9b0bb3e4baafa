#include "GlyphOutlineCache.h"
#include "GuiTestSupport.h"
#include "SlideFonts.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_glyph_outline_cache {

namespace {

QRawFont font(TextFontWeight weight)
{
    return QRawFont::fromFont(slideFont(QStringLiteral("Lato"), weight, 128));
}

const QString letters = QStringLiteral("Great is the morning");

} // namespace

class TestGlyphOutlineCache : public GuiTest
{
    Q_OBJECT

private slots:
    void itGivesTheOutlinesOfTheFont()
    {
        GlyphOutlineCache cache;
        for (const TextFontWeight weight : allCases<TextFontWeight>()) {
            const QRawFont face = font(weight);
            for (const quint32 glyph : face.glyphIndexesForString(letters)) {
                QCOMPARE(cache.outline(face, glyph), face.pathForGlyph(glyph));
                QCOMPARE(cache.outline(face, glyph), face.pathForGlyph(glyph));
            }
        }
    }

    void anOutlineIsHeldOnce()
    {
        GlyphOutlineCache cache;
        const QList<quint32> glyphs =
            font(TextFontWeight::bold).glyphIndexesForString(QStringLiteral("aba"));
        for (const quint32 glyph : glyphs)
            cache.outline(font(TextFontWeight::bold), glyph);
        QCOMPARE(cache.count(), 2);
        cache.outline(font(TextFontWeight::regular), glyphs.constFirst());
        QCOMPARE(cache.count(), 3);
    }

    void itHoldsNoMoreThanItsMaximum()
    {
        constexpr qsizetype maximum = 3;
        GlyphOutlineCache cache(maximum);
        const QRawFont face = font(TextFontWeight::bold);
        const QList<quint32> glyphs =
            face.glyphIndexesForString(QStringLiteral("abcdefghijklmnop"));
        qsizetype most = 0;
        for (const quint32 glyph : glyphs) {
            QCOMPARE(cache.outline(face, glyph), face.pathForGlyph(glyph));
            most = std::max(most, cache.count());
        }
        QCOMPARE(most, maximum);
    }
};

QUENARA_GUI_TEST(TestGlyphOutlineCache)

} // namespace tst_glyph_outline_cache

#include "tst_glyph_outline_cache.moc"
