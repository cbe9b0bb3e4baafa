#include "Images.h"
#include "SlideDesignRenderView.h"
#include "TextImages.h"

#include <limits>

using namespace quenara;
using namespace quenara::test;

namespace tst_unusual_numbers {

namespace {

constexpr QSize screen(480, 270);
const RGBAColor gray{0.5, 0.5, 0.5, 1};
const RGBAColor red{1, 0, 0, 1};
const RGBAColor blue{0, 0, 1, 1};
constexpr QRgb grayPixel = qRgb(128, 128, 128);
constexpr QRgb redPixel = qRgb(255, 0, 0);

constexpr double unusual[] = {0, -0.0, -1, -1e9, 1e-9, 1e6, 1e9, 1e18, 1e300, -1e300, 1e308};

Slide slideOf(const QList<SlideElement> &elements)
{
    SlideDesign design = designOver(solidBackground(gray));
    design.elements = elements;
    return slideWith(design);
}

SlideElement redLayer(const CanvasFrame &frame = {480, 270, 960, 540})
{
    return rectangleLayer(QStringLiteral("layer"), frame, red, 1);
}

QImage imageOf(const Slide &slide)
{
    return rendered({.slide = slide}, screen);
}

QRgb middleOf(const QImage &image)
{
    return image.pixel(image.width() / 2, image.height() / 2);
}

/// One layer of each kind, everything in it there is.
QList<SlideElement> everyKindOfLayer()
{
    QList<SlideElement> layers;
    for (const SlideElementKind kind : allCases<SlideElementKind>()) {
        SlideElement layer = redLayer();
        layer.kind = kind;
        layer.shape->stroke = blue;
        layer.shape->strokeWidth = 3;
        layer.shape->cornerRadius = 12;
        layer.text = TextElementProperties::lyric(QStringLiteral("Sing\nwith joy"));
        layer.text->backgroundFill = red;
        layer.text->outline = TextOutline{blue, 3};
        layer.image = mediaOf(encoded(quarters({64, 48}), "PNG"));
        layer.lowerThird =
            LowerThirdProperties{QStringLiteral("Ana"), QStringLiteral("Guest"), blue, red};
        layers.append(layer);
    }
    SlideElement placeholder = layers.at(3);
    placeholder.image.reset();
    layers.append(placeholder);
    return layers;
}

QString nameOf(const SlideElement &layer)
{
    return rawValue(layer.kind)
        + (layer.kind == SlideElementKind::image && !layer.image ? QStringLiteral(" missing")
                                                                 : QString());
}

/// A field of a layer that holds a number.
struct Number
{
    const char *name;
    void (*set)(SlideElement &layer, double value);
};

constexpr Number layerNumbers[] = {
    {"x", [](SlideElement &layer, double value) { layer.frame.x = value; }},
    {"y", [](SlideElement &layer, double value) { layer.frame.y = value; }},
    {"width", [](SlideElement &layer, double value) { layer.frame.width = value; }},
    {"height", [](SlideElement &layer, double value) { layer.frame.height = value; }},
    {"the whole frame",
     [](SlideElement &layer, double value) {
         layer.frame = {value, value, value, value};
     }},
    {"a frame around the slide",
     [](SlideElement &layer, double value) {
         layer.frame = {-value, -value, 2 * value, 2 * value};
     }},
    {"rotation", [](SlideElement &layer, double value) { layer.rotation = value; }},
    {"opacity", [](SlideElement &layer, double value) { layer.opacity = value; }},
    {"a faded frame",
     [](SlideElement &layer, double value) {
         layer.opacity = 0.5;
         layer.frame = {-value, -value, 2 * value, 2 * value};
     }},
    {"font size", [](SlideElement &layer, double value) { layer.text->fontSize = value; }},
    {"line height", [](SlideElement &layer, double value) { layer.text->lineHeight = value; }},
    {"character spacing",
     [](SlideElement &layer, double value) { layer.text->characterSpacing = value; }},
    {"padding", [](SlideElement &layer, double value) { layer.text->padding = value; }},
    {"shadow radius",
     [](SlideElement &layer, double value) { layer.text->shadow->radius = value; }},
    {"shadow offset",
     [](SlideElement &layer, double value) {
         layer.text->shadow->x = value;
         layer.text->shadow->y = -value;
     }},
    {"outline width",
     [](SlideElement &layer, double value) { layer.text->outline->width = value; }},
    {"colours",
     [](SlideElement &layer, double value) {
         const RGBAColor color{value, -value, value, value};
         layer.text->textColor = color;
         layer.text->shadow->color = color;
         layer.shape->fill = color;
         layer.shape->stroke = color;
         layer.lowerThird->fill = color;
     }},
    {"corner radius", [](SlideElement &layer, double value) { layer.shape->cornerRadius = value; }},
    {"stroke width", [](SlideElement &layer, double value) { layer.shape->strokeWidth = value; }},
};

} // namespace

class TestUnusualNumbers : public GuiTest
{
    Q_OBJECT

private slots:
    void anyNumberInALayerLeavesTheRestOfTheSlideAsItIs_data()
    {
        QTest::addColumn<SlideElement>("layer");
        for (const SlideElement &layer : everyKindOfLayer()) {
            for (const Number &number : layerNumbers) {
                for (const double value : unusual) {
                    SlideElement changed = layer;
                    number.set(changed, value);
                    if (changed != layer) {
                        QTest::addRow("%s, %s %g", qPrintable(nameOf(layer)), number.name, value)
                            << changed;
                    }
                }
            }
        }
    }

    void anyNumberInALayerLeavesTheRestOfTheSlideAsItIs()
    {
        QFETCH(SlideElement, layer);
        SlideElement corner = rectangleLayer(QStringLiteral("corner"), {0, 0, 40, 40}, blue, 9);
        const QImage image = imageOf(slideOf({layer, corner}));
        QCOMPARE(image.pixel(4, 4), qRgb(0, 0, 255));
        QVERIFY(image.pixel(2, 268) != magenta);
    }

    void anyLayerIsPaintedOnAnyCanvas_data()
    {
        QTest::addColumn<SlideElement>("layer");
        QTest::addColumn<double>("side");
        for (const SlideElement &layer : everyKindOfLayer()) {
            for (const double side : {1e-300, 1e-6, 1e6, 1e12, 1e15, 1e300, 1e308})
                QTest::addRow("%s on %g", qPrintable(nameOf(layer)), side) << layer << side;
        }
    }

    void anyLayerIsPaintedOnAnyCanvas()
    {
        QFETCH(SlideElement, layer);
        QFETCH(double, side);
        layer.frame = {0, 0, side, side};
        Slide slide = slideOf({layer});
        slide.design.background = solidBackground(blue);
        slide.design.canvasSize = {side, side};
        const QImage image = imageOf(slide);
        QCOMPARE(image.pixel(1, 1), magenta); // beside the square slide
        QVERIFY(middleOf(image) != magenta);
    }

    void coloursAreCutToTheirRange_data()
    {
        QTest::addColumn<RGBAColor>("color");
        QTest::addColumn<QRgb>("expected");
        QTest::newRow("alpha 7 is opaque") << RGBAColor{1, 0, 0, 7} << redPixel;
        QTest::newRow("alpha -3 is nothing") << RGBAColor{1, 0, 0, -3} << grayPixel;
        QTest::newRow("red 9 is red") << RGBAColor{9, -2, -0.5, 1} << redPixel;
    }

    void coloursAreCutToTheirRange()
    {
        QFETCH(RGBAColor, color);
        QFETCH(QRgb, expected);
        const SlideElement layer =
            rectangleLayer(QStringLiteral("layer"), {480, 270, 960, 540}, color, 1);
        QCOMPARE(middleOf(imageOf(slideOf({layer}))), expected);
    }

    void opacityIsCutToItsRange()
    {
        SlideElement layer = redLayer();
        layer.opacity = 2;
        QCOMPARE(middleOf(imageOf(slideOf({layer}))), redPixel);
        layer.opacity = -1;
        QCOMPARE(middleOf(imageOf(slideOf({layer}))), grayPixel);
    }

    void aFrameWithoutExtentShowsNothing_data()
    {
        QTest::addColumn<CanvasFrame>("frame");
        QTest::addColumn<SlideElement>("layer");
        for (const SlideElement &layer : everyKindOfLayer()) {
            if (layer.kind == SlideElementKind::shape || layer.kind == SlideElementKind::image
                || layer.kind == SlideElementKind::lowerThird) {
                QTest::addRow("no width: %s", qPrintable(nameOf(layer)))
                    << CanvasFrame{900, 500, 0, 100} << layer;
                QTest::addRow("no height: %s", qPrintable(nameOf(layer)))
                    << CanvasFrame{900, 500, 100, 0} << layer;
                QTest::addRow("less than none: %s", qPrintable(nameOf(layer)))
                    << CanvasFrame{960, 540, -500, -300} << layer;
            }
        }
    }

    void aFrameWithoutExtentShowsNothing()
    {
        QFETCH(CanvasFrame, frame);
        QFETCH(SlideElement, layer);
        layer.frame = frame;
        QCOMPARE(imageOf(slideOf({layer})), imageOf(slideOf({})));
    }

    void aHugeFrameCoversTheSlide_data()
    {
        QTest::addColumn<double>("opacity");
        QTest::newRow("opaque") << 1.0;
        QTest::newRow("faded") << 0.5;
    }

    void aHugeFrameCoversTheSlide()
    {
        QFETCH(double, opacity);
        SlideElement layer = redLayer({-5e8, -5e8, 1e9, 1e9});
        layer.opacity = opacity;
        const QImage image = imageOf(slideOf({layer}));
        for (const QPoint &place :
             {QPoint(0, 0), QPoint(479, 0), QPoint(240, 135), QPoint(479, 269)}) {
            QVERIFY(std::abs(qRed(image.pixel(place)) - (opacity < 1 ? 192 : 255)) <= 1);
            QVERIFY(std::abs(qBlue(image.pixel(place)) - (opacity < 1 ? 64 : 0)) <= 1);
        }
    }

    void anImageInAHugeFrameIsShown()
    {
        SlideElement layer = everyKindOfLayer().at(3);
        layer.image = solidImage({64, 48}, Qt::green);
        for (const double side : {1e5, 1e7, 1e9}) {
            layer.frame = {-side / 2, -side / 2, side, side};
            QCOMPARE(middleOf(imageOf(slideOf({layer}))), qRgb(0, 255, 0));
        }
    }

    void wholeTurnsTurnNothing()
    {
        SlideElement layer = redLayer({600, 500, 700, 100});
        const QImage straight = imageOf(slideOf({layer}));
        for (const double rotation : {360.0, -720.0, 360e9}) {
            layer.rotation = rotation;
            QCOMPARE(imageOf(slideOf({layer})), straight);
        }
    }

    void aNegativePaddingLetsTheTextGrowBeyondItsBox()
    {
        TextElementProperties text = plainText(QStringLiteral("one\ntwo\nthree"));
        const CanvasFrame frame{500, 400, 900, 100};
        const QRect inside = inkOf(textImage(text, frame));
        text.padding = -200;
        const QRect outside = inkOf(textImage(text, frame));
        QVERIFY(outside.height() > 2 * inside.height());
        QVERIFY(std::abs(outside.center().y() - inside.center().y()) <= 40);
    }

    void aPaddingBeyondTheSlideLeavesNothingOfTheText()
    {
        TextElementProperties text = plainText(QStringLiteral("one two three"));
        text.padding = 5000;
        QVERIFY(inkOf(textImage(text, {500, 400, 900, 100})).isEmpty());
    }

    void aRadiusBelowZeroIsNone()
    {
        SlideElement layer = redLayer();
        const QImage sharp = imageOf(slideOf({layer}));
        layer.shape->cornerRadius = -40;
        QCOMPARE(imageOf(slideOf({layer})), sharp);
    }

    void aRadiusBeyondTheHalfOfASideIsThatHalf()
    {
        SlideElement layer = redLayer();
        layer.shape->cornerRadius = 1e6;
        const QImage round = imageOf(slideOf({layer}));
        layer.shape->kind = ShapeKind::capsule;
        QCOMPARE(imageOf(slideOf({layer})), round);
    }

    void anyNumberInABackgroundHasItsMeaningOrNone_data()
    {
        QTest::addColumn<double>("blurAmount");
        QTest::addColumn<double>("dimAmount");
        for (const double number : unusual) {
            QTest::addRow("blur %g", number) << number << 0.0;
            QTest::addRow("dim %g", number) << 0.0 << number;
        }
    }

    void anyNumberInABackgroundHasItsMeaningOrNone()
    {
        QFETCH(double, blurAmount);
        QFETCH(double, dimAmount);
        SlideBackground background = solidBackground(red);
        background.kind = SlideBackgroundKind::image;
        background.image = solidImage({64, 36}, Qt::green);
        background.blurAmount = blurAmount;
        background.dimAmount = dimAmount;
        const QRgb middle = middleOf(imageOf(slideWith(designOver(background))));
        if (dimAmount >= 1) {
            QCOMPARE(middle, qRgb(0, 0, 0));
        } else if (blurAmount < 1) {
            QCOMPARE(middle, qRgb(0, 255, 0));
        } else {
            QVERIFY(qGreen(middle) < 5); // faded away, as from its edges
        }
    }

    void anyCanvasIsFittedOrNotDrawnAtAll_data()
    {
        QTest::addColumn<CanvasSize>("size");
        QTest::addColumn<bool>("isDrawn");
        QTest::newRow("0 by 0") << CanvasSize{0, 0} << false;
        QTest::newRow("0 by 1080") << CanvasSize{0, 1080} << false;
        QTest::newRow("1920 by 0") << CanvasSize{1920, 0} << false;
        QTest::newRow("-1920 by -1080") << CanvasSize{-1920, -1080} << false;
        QTest::newRow("1e9 by 1e9") << CanvasSize{1e9, 1e9} << true;
        QTest::newRow("1e300 by 1e300") << CanvasSize{1e300, 1e300} << true;
        QTest::newRow("1e-300 by 1e-300") << CanvasSize{1e-300, 1e-300} << true;
        QTest::newRow("1e15 by 1e15") << CanvasSize{1e15, 1e15} << true;
        QTest::newRow("1e308 by 1e308") << CanvasSize{1e308, 1e308} << true;
        QTest::newRow("100 by 10000") << CanvasSize{100, 10000} << true;
        QTest::newRow("100000 by 1000") << CanvasSize{100000, 1000} << true;
        QTest::newRow("0.5 by 0.5") << CanvasSize{0.5, 0.5} << true;
    }

    void anyCanvasIsFittedOrNotDrawnAtAll()
    {
        QFETCH(CanvasSize, size);
        QFETCH(bool, isDrawn);
        Slide slide = slideOf(everyKindOfLayer());
        slide.design.canvasSize = size;
        const QString selected = slide.design.elements.constFirst().id;
        rendered({.slide = slide, .showSafeArea = true, .selectedElementID = selected}, screen);
        slide.design.elements.clear();
        const QImage image = rendered({.slide = slide}, screen);
        QCOMPARE(middleOf(image), isDrawn ? grayPixel : magenta);
    }

    void aGradientIsTheSameOnACanvasOfAnySize()
    {
        Slide slide = slideOf({});
        slide.design.background.kind = SlideBackgroundKind::gradient;
        slide.design.background.gradient = GradientBackground{};
        for (const GradientDirection direction :
             {GradientDirection::vertical, GradientDirection::horizontal,
              GradientDirection::diagonal}) {
            slide.design.background.gradient->direction = direction;
            slide.design.canvasSize = {1000, 1000};
            const QImage expected = rendered({.slide = slide}, screen);
            for (const double side : {1e-300, 1e-9, 1.0, 1e9, 1e300}) {
                slide.design.canvasSize = {side, side};
                QCOMPARE(rendered({.slide = slide}, screen), expected);
            }
        }
    }

    void aGradientOnACanvasThatNoNumberScalesEnds()
    {
        Slide slide = slideOf({});
        slide.design.background.kind = SlideBackgroundKind::gradient;
        slide.design.background.gradient = GradientBackground{};
        for (const GradientDirection direction : allCases<GradientDirection>()) {
            slide.design.background.gradient->direction = direction;
            for (const double side : {1e-320, 1e-308}) {
                slide.design.canvasSize = {side, side};
                QCOMPARE(rendered({.slide = slide}, screen).pixel(0, 0), magenta);
            }
        }
    }

    void shapesOfUnusualSizesOnUnusualCanvasesDrawAndEnd()
    {
        SlideElement layer = redLayer();
        layer.shape->kind = ShapeKind::capsule;
        for (const double side : {1e-320, 1e-300, 1e-9, 1e300}) {
            for (const CanvasFrame &frame :
                 {CanvasFrame{0, 0, 1e10, 1e10}, CanvasFrame{1e9, 1e18, 1e300, 7},
                  CanvasFrame{-1e300, -1e300, 1e300, 1e300}}) {
                for (const double rotation : {0.0, 1.0}) {
                    layer.frame = frame;
                    layer.rotation = rotation;
                    Slide slide = slideOf({layer});
                    slide.design.canvasSize = {side, 2 * side};
                    QCOMPARE(rendered({.slide = slide}, screen).pixel(0, 0), magenta);
                }
            }
        }
    }

    void aCanvasThinnerThanAPixelDrawsAndEnds()
    {
        for (const CanvasSize &size :
             {CanvasSize{1, 10000}, CanvasSize{1e9, 1}, CanvasSize{1, 1e300}}) {
            Slide slide = slideOf(everyKindOfLayer());
            slide.design.background.kind = SlideBackgroundKind::image;
            slide.design.background.image = solidImage({8, 8}, Qt::green);
            slide.design.background.blurAmount = 10;
            slide.design.canvasSize = size;
            const QImage image = rendered({.slide = slide, .showSafeArea = true}, screen);
            QCOMPARE(image.pixel(0, 0), magenta);
        }
    }

    void layersFarApartInDepthKeepTheirOrder()
    {
        SlideElement top = redLayer();
        top.zIndex = std::numeric_limits<std::int64_t>::max();
        SlideElement bottom = redLayer();
        bottom.shape->fill = blue;
        bottom.zIndex = std::numeric_limits<std::int64_t>::min();
        QCOMPARE(middleOf(imageOf(slideOf({top, bottom}))), redPixel);
        QCOMPARE(middleOf(imageOf(slideOf({bottom, top}))), redPixel);
    }

    void fiveHundredLayersAreAllDrawn()
    {
        QList<SlideElement> layers;
        for (int i = 0; i < 500; ++i) {
            const int row = i / 25;
            const CanvasFrame cell{double(i % 25) * 76, double(row) * 54, 76, 54};
            SlideElement layer = textSlide(plainText(QStringLiteral("H%1").arg(i)), cell)
                                     .design.elements.constFirst();
            layer.text->shadow = TextShadow::soft;
            layer.opacity = i % 2 == 0 ? 1 : 0.8;
            layers.append(layer);
        }
        Slide slide = slideOf(layers);
        slide.design.background = solidBackground({0, 0, 0, 1});
        const QImage image = rendered({.slide = slide}, canvas);
        for (int i = 0; i < 500; ++i)
            QVERIFY(!inkOf(image.copy((i % 25) * 76, (i / 25) * 54, 76, 54)).isEmpty());
    }

    void endlessTextsAreCutAndEmptyOnesShowNothing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("hasInk");
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("spaces") << QStringLiteral("   ") << false;
        QTest::newRow("line breaks") << QStringLiteral("\n\n\n") << false;
        QTest::newRow("100,000 characters of words")
            << QStringLiteral("and every hill begins to sing ").repeated(3334) << true;
        QTest::newRow("100,000 characters of one word")
            << QString(100'000, QLatin1Char('w')) << true;
        QTest::newRow("100,000 characters on lines of their own")
            << QStringLiteral("w\n").repeated(50'000) << true;
        QTest::newRow("100,000 combining marks")
            << QStringLiteral("e") + QString(100'000, QChar(0x0301)) << true;
        QTest::newRow("half of a surrogate pair") << QString(QChar(0xd83d)) << true;
    }

    void endlessTextsAreCutAndEmptyOnesShowNothing()
    {
        QFETCH(QString, text);
        QFETCH(bool, hasInk);
        const QImage image = textImage(plainText(text), {200, 200, 1500, 600});
        QCOMPARE(!inkOf(image).isEmpty(), hasInk);
    }
};

QUENARA_GUI_TEST(TestUnusualNumbers)

} // namespace tst_unusual_numbers

#include "tst_unusual_numbers.moc"
