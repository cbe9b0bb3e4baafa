#include "Images.h"
#include "TextImages.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_text_shadows {

namespace {

const RGBAColor red{1, 0, 0, 1};

QImage imageOf(const TextElementProperties &text, const CanvasFrame &frame, double opacity)
{
    Slide slide = textSlide(text, frame);
    slide.design.elements.first().opacity = opacity;
    return rendered({.slide = slide}, canvas);
}

void addOpacities()
{
    QTest::addColumn<double>("opacity");
    QTest::newRow("opaque") << 1.0;
    QTest::newRow("faded") << 0.9;
}

} // namespace

class TestTextShadows : public GuiTest
{
    Q_OBJECT

private slots:
    void aShadowFallsOntoTheSlideFromTextOutsideIt_data() { addOpacities(); }

    void aShadowFallsOntoTheSlideFromTextOutsideIt()
    {
        QFETCH(double, opacity);
        TextElementProperties text = plainText(QStringLiteral("HHH"));
        const QRect inside = inkOf(imageOf(text, {300, 200, 1200, 200}, opacity));
        text.shadow = TextShadow{text.textColor, 0, 0, 600};
        const QRect shadow = inkOf(imageOf(text, {300, -400, 1200, 200}, opacity));
        QCOMPARE(shadow, inside);
    }

    void aShadowOfANegativeRadiusIsHardAndWhole_data() { addOpacities(); }

    void aShadowOfANegativeRadiusIsHardAndWhole()
    {
        QFETCH(double, opacity);
        TextElementProperties text = plainText(QStringLiteral("HHH"));
        text.shadow = TextShadow{red, 0, 0, 300};
        const CanvasFrame frame{300, 200, 1200, 120};
        const QImage hard = imageOf(text, frame, opacity);
        text.shadow->radius = -50;
        QCOMPARE(imageOf(text, frame, opacity), hard);
    }

    void whatIsBlurredFromLettersIsAsTranslucentAsThey()
    {
        const auto redness = [](double alpha) {
            TextElementProperties text = plainText(QStringLiteral("HHH"));
            text.textColor.alpha = alpha;
            text.shadow = TextShadow{red, 8, 0, 200};
            const QImage image = imageOf(text, {300, 200, 1200, 120}, 1).copy(300, 400, 1200, 120);
            int most = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    most = std::max(most, qRed(image.pixel(x, y)));
            }
            return most;
        };
        const int opaque = redness(1);
        QVERIFY(opaque > 150);
        QVERIFY(std::abs(redness(0.5) - opaque / 2) <= 2);
        QCOMPARE(redness(0), 0);
    }

    void aTextThatLeavesItsBoxFadesWhole_data()
    {
        QTest::addColumn<double>("height");
        QTest::addColumn<double>("padding");
        QTest::addColumn<double>("scale");
        for (const double scale : {1.0, 2.0}) {
            QTest::addRow("a box that is too low, at scale %g", scale) << 12.0 << 0.0 << scale;
            for (const double padding : {-60.0, -104.0, -150.0, -300.0}) {
                QTest::addRow("a padding of %g, at scale %g", padding, scale)
                    << 60.0 << padding << scale;
            }
        }
    }

    void aTextThatLeavesItsBoxFadesWhole()
    {
        QFETCH(double, height);
        QFETCH(double, padding);
        QFETCH(double, scale);
        TextElementProperties text = plainText(QStringLiteral("one\ntwo\nthree"));
        text.shadow = TextShadow::soft;
        text.padding = padding;
        const auto ink = [&](double opacity) {
            Slide slide = textSlide(text, {300, 500, 1200, height});
            slide.design.elements.first().opacity = opacity;
            return inkOf(rendered({.slide = slide}, canvas * scale));
        };
        // The faintest row of a shadow may fade to nothing.
        QVERIFY(ink(0.9).adjusted(-1, -1, 1, 1).contains(ink(1)));
    }

    void aWideShadowIsOfItsColourWhereTheLettersAreWider()
    {
        // The stroke of the letter is wider than the blur, which is painted at a reduced size.
        TextElementProperties text = plainText(QStringLiteral("I"));
        text.fontSize = 900;
        text.weight = TextFontWeight::heavy;
        text.alignment = TextAlignmentValue::left;
        const CanvasFrame frame{200, 0, 700, 1080};
        const QPoint middle = inkOf(imageOf(text, frame, 1)).center();
        constexpr int offset = 800;
        text.shadow = TextShadow{red, 24, offset, 0};
        QCOMPARE(imageOf(text, frame, 1).pixel(middle + QPoint(offset, 0)), qRgb(255, 0, 0));
    }

    void pixelsAreTheSameWhateverTheirRatio_data()
    {
        QTest::addColumn<double>("opacity");
        QTest::addColumn<double>("rotation");
        QTest::addColumn<double>("blurAmount");
        QTest::newRow("upright") << 1.0 << 0.0 << 0.0;
        QTest::newRow("faded") << 0.6 << 0.0 << 0.0;
        QTest::newRow("turned") << 1.0 << 21.0 << 0.0;
        QTest::newRow("turned and faded") << 0.6 << 21.0 << 0.0;
        QTest::newRow("before a blurred image") << 0.6 << 0.0 << 20.0;
    }

    void pixelsAreTheSameWhateverTheirRatio()
    {
        QFETCH(double, opacity);
        QFETCH(double, rotation);
        QFETCH(double, blurAmount);
        TextElementProperties text = plainText(QStringLiteral("Sing\nwith joy"));
        text.shadow = TextShadow::soft;
        text.outline = TextOutline{red, 6};
        text.backgroundFill = RGBAColor{0, 0, 1, 0.5};
        Slide slide = textSlide(text, {300, 300, 1200, 400});
        slide.design.elements.first().opacity = opacity;
        slide.design.elements.first().rotation = rotation;
        slide.design.background.kind = SlideBackgroundKind::image;
        slide.design.background.image = mediaOf(encoded(quarters({640, 480}), "PNG"));
        slide.design.background.blurAmount = blurAmount;
        const QImage large = rendered({.slide = slide}, {960, 540}, 1);
        const QImage dense = rendered({.slide = slide}, {480, 270}, 2);
        constexpr int rounding = 8;
        QVERIFY(largestDifference(dense, large) <= rounding);
    }
};

QUENARA_GUI_TEST(TestTextShadows)

} // namespace tst_text_shadows

#include "tst_text_shadows.moc"
