#include "GuiTestSupport.h"
#include "PaintingWorkarounds.h"
#include "SlideFonts.h"

#include <QGlyphRun>

using namespace quenara;
using namespace quenara::test;

namespace tst_scaled_font_cache {

namespace {

constexpr std::array scales{0.09, 0.17, 0.25, 1.0 / 3, 0.4999};

QRawFont font(TextFontWeight weight)
{
    return QRawFont::fromFont(slideFont(QStringLiteral("Lato"), weight, 128));
}

QImage letters(const QRawFont &font, double scale)
{
    QGlyphRun run;
    run.setRawFont(font);
    run.setGlyphIndexes(font.glyphIndexesForString(QStringLiteral("Grace")));
    run.setPositions({{10.3, 150}, {101.7, 150}, {140, 150}, {200.1, 150}, {270.9, 150}});
    QImage image(200, 100, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::white);
    painter.scale(scale, scale);
    painter.drawGlyphRun({}, run);
    return image;
}

} // namespace

class TestScaledFontCache : public GuiTest
{
    Q_OBJECT

private slots:
    void aFontForAScaleDrawsTheSameLetters()
    {
        ScaledFontCache cache;
        for (const TextFontWeight weight : allCases<TextFontWeight>()) {
            for (const double scale : scales) {
                const QImage plain = letters(font(weight), scale);
                QVERIFY(!inkOf(plain).isEmpty());
                QCOMPARE(letters(cache.font(font(weight), scale), scale), plain);
            }
        }
    }

    void aScaleKeepsItsFont()
    {
        ScaledFontCache cache;
        const QRawFont one = cache.font(font(TextFontWeight::bold), 0.25);
        QCOMPARE(cache.font(font(TextFontWeight::bold), 0.25), one);
        QVERIFY(cache.font(font(TextFontWeight::bold), 0.26) != one);
        QVERIFY(cache.font(font(TextFontWeight::regular), 0.25) != one);
    }

    void scalesThatAreNotUsedAnyMoreGo()
    {
        ScaledFontCache cache;
        const QRawFont used = cache.font(font(TextFontWeight::bold), 0.25);
        const QRawFont left = cache.font(font(TextFontWeight::bold), 0.26);
        for (int i = 1; i < 1000; ++i) {
            cache.font(font(TextFontWeight::bold), 0.3 + 0.0001 * i);
            cache.font(font(TextFontWeight::bold), 0.25);
        }
        QCOMPARE(cache.font(font(TextFontWeight::bold), 0.25), used);
        QVERIFY(cache.font(font(TextFontWeight::bold), 0.26) != left);
    }
};

QUENARA_GUI_TEST(TestScaledFontCache)

} // namespace tst_scaled_font_cache

#include "tst_scaled_font_cache.moc"
