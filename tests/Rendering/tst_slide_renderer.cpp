#include "GuiTestSupport.h"
#include "Images.h"
#include "SlideDesignRenderView.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_slide_renderer {

namespace {

const RGBAColor red{1, 0, 0, 1};
const RGBAColor blue{0, 0, 1, 1};
const RGBAColor gray{0.5, 0.5, 0.5, 1};
constexpr QSize canvas(1920, 1080);

Slide slideOver(const RGBAColor &color, const QList<SlideElement> &elements)
{
    SlideDesign design = designOver(solidBackground(color));
    design.elements = elements;
    return slideWith(design);
}

bool isAmber(QRgb pixel)
{
    return pixel == qRgb(0xe0, 0xa1, 0x34);
}

SlideElement emptyImageLayer()
{
    SlideElement layer;
    layer.id = QStringLiteral("image");
    layer.kind = SlideElementKind::image;
    layer.frame = {100, 100, 400, 400};
    return layer;
}

} // namespace

class TestSlideRenderer : public GuiTest
{
    Q_OBJECT

private slots:
    void fitting_data()
    {
        QTest::addColumn<QSizeF>("container");
        QTest::addColumn<QRectF>("expected");
        QTest::newRow("a square is filled in width")
            << QSizeF(1000, 1000) << QRectF(0, 218.75, 1000, 562.5);
        QTest::newRow("a wide area is filled in height")
            << QSizeF(4000, 1080) << QRectF(1040, 0, 1920, 1080);
        QTest::newRow("the same aspect ratio is filled whole")
            << QSizeF(960, 540) << QRectF(0, 0, 960, 540);
        QTest::newRow("no width gives nothing") << QSizeF(0, 540) << QRectF();
        QTest::newRow("a negative height gives nothing") << QSizeF(960, -1) << QRectF();
    }

    void fitting()
    {
        QFETCH(QSizeF, container);
        QFETCH(QRectF, expected);
        QCOMPARE(SlideRendererView::fittedRect(container, 1920.0 / 1080), expected);
    }

    void theScaleIsTheFittedWidthOverThatOfTheCanvas_data()
    {
        QTest::addColumn<QSize>("container");
        QTest::addColumn<QRectF>("layer");
        QTest::newRow("a square") << QSize(1000, 1000) << QRectF(250, 359.375, 500, 281.25);
        QTest::newRow("a wide area") << QSize(4000, 1080) << QRectF(1520, 270, 960, 540);
        QTest::newRow("a thumbnail") << QSize(64, 36) << QRectF(16, 9, 32, 18);
    }

    void theScaleIsTheFittedWidthOverThatOfTheCanvas()
    {
        QFETCH(QSize, container);
        QFETCH(QRectF, layer);
        const Slide slide = slideOver(
            gray, {rectangleLayer(QStringLiteral("layer"), {480, 270, 960, 540}, red, 1)});
        const QImage image = rendered({.slide = slide}, container);
        QRect painted;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) == qRgb(255, 0, 0))
                    painted |= QRect(x, y, 1, 1);
            }
        }
        QVERIFY(layer.toAlignedRect().contains(painted));
        QVERIFY(painted.contains(layer.adjusted(1, 1, -1, -1).toAlignedRect()));
    }

    void anAreaWithoutWidthDrawsNothing()
    {
        QImage image(8, 8, QImage::Format_ARGB32_Premultiplied);
        image.fill(magenta);
        QPainter painter(&image);
        paintAnew({.slide = slideOver(red, {})}, painter, QRectF(0, 0, 0, 8));
        painter.end();
        QImage untouched = image;
        untouched.fill(magenta);
        QCOMPARE(image, untouched);
    }

    void aSlideHidesItsPlaceButForTheEdges_data()
    {
        QTest::addColumn<SlideBackground>("background");
        QTest::addColumn<QSize>("area");
        QTest::addColumn<QRect>("hidden");
        SlideBackground video = solidBackground(gray);
        video.kind = SlideBackgroundKind::video;
        SlideBackground translucent = SlideBackground::defaultDark();
        translucent.gradient->endColor.alpha = 0.9;
        SlideBackground image = solidBackground(gray);
        image.kind = SlideBackgroundKind::image;
        image.image = solidImage({4, 4}, Qt::white);
        QTest::newRow("one colour")
            << solidBackground(gray) << QSize(1920, 1080) << QRect(2, 2, 1916, 1076);
        QTest::newRow("between black bars")
            << solidBackground(gray) << QSize(1000, 1000) << QRect(2, 220, 996, 560);
        QTest::newRow("a gradient")
            << SlideBackground::defaultDark() << QSize(1366, 768) << QRect(2, 2, 1362, 764);
        QTest::newRow("a video's colour") << video << QSize(333, 191) << QRect(2, 3, 329, 185);
        QTest::newRow("a translucent colour")
            << solidBackground({1, 1, 1, 0.99}) << QSize(1920, 1080) << QRect();
        QTest::newRow("a translucent gradient") << translucent << QSize(1920, 1080) << QRect();
        QTest::newRow("an image, which may have holes") << image << QSize(1920, 1080) << QRect();
    }

    void aSlideHidesItsPlaceButForTheEdges()
    {
        QFETCH(SlideBackground, background);
        QFETCH(QSize, area);
        QFETCH(QRect, hidden);
        const SlideRendererView view{.slide = slideWith(designOver(background))};
        QCOMPARE(view.hiddenRect(QRect(QPoint(0, 0), area)), hidden);
        if (hidden.isEmpty())
            return;
        QImage onGreen(area, QImage::Format_ARGB32);
        onGreen.fill(Qt::green);
        QPainter painter(&onGreen);
        paintAnew(view, painter, onGreen.rect());
        painter.end();
        QCOMPARE(onGreen.copy(hidden), rendered(view, area).copy(hidden));
    }

    void noSlideHidesNothing()
    {
        QCOMPARE(SlideRendererView().hiddenRect(QRect(0, 0, 100, 100)), QRect());
    }

    void aLayerOfOnePieceFadesAsOneOfManyDoes()
    {
        SlideElement layer = rectangleLayer(QStringLiteral("layer"), {0, 0, 1920, 1080}, red, 1);
        layer.opacity = 0.25;
        // On what is blue already, the slide at half its strength.
        const auto color = [&] {
            QImage image(192, 108, QImage::Format_RGB32);
            image.fill(Qt::blue);
            QPainter painter(&image);
            painter.setOpacity(0.5);
            paintAnew({.slide = slideOver(blue, {layer})}, painter, image.rect());
            painter.end();
            return image.pixelColor(96, 54);
        };
        const QColor plain = color();
        QVERIFY(std::abs(plain.red() - 32) <= 1 && std::abs(plain.blue() - 223) <= 1);
        layer.shape->stroke = red;
        layer.shape->strokeWidth = 300; // over all of what is filled
        QVERIFY(std::abs(color().red() - plain.red()) <= 1);
        QVERIFY(std::abs(color().blue() - plain.blue()) <= 1);
    }

    void anAbsentSlideIsABlackImageOfTheStandardShape()
    {
        const QImage image = rendered({}, {160, 160});
        QCOMPARE(image.pixel(80, 34), magenta);
        QCOMPARE(image.pixel(80, 36), qRgb(0, 0, 0));
        QCOMPARE(image.pixel(0, 80), qRgb(0, 0, 0));
        QCOMPARE(image.pixel(80, 126), magenta);
    }

    void nothingIsDrawnAroundTheSlideNorByLayersThatLeaveIt()
    {
        const Slide slide = slideOver(
            gray, {rectangleLayer(QStringLiteral("wide"), {-500, -500, 3000, 3000}, red, 1)});
        const QImage image = rendered({.slide = slide}, {160, 160});
        QCOMPARE(image.pixel(80, 34), magenta);
        QCOMPARE(image.pixel(80, 80), qRgb(255, 0, 0));
        QCOMPARE(image.pixel(80, 126), magenta);
    }

    void layersArePaintedFromTheLowestZIndexUpAndEqualOnesInListOrder()
    {
        const CanvasFrame frame{400, 400, 400, 200};
        const auto topColor = [&](int redZ, int blueZ) {
            const Slide slide =
                slideOver(gray,
                          {rectangleLayer(QStringLiteral("red"), frame, red, redZ),
                           rectangleLayer(QStringLiteral("blue"), frame, blue, blueZ)});
            return rendered({.slide = slide}, {192, 108}).pixel(60, 50);
        };
        QCOMPARE(topColor(5, 5), qRgb(0, 0, 255));
        QCOMPARE(topColor(6, 5), qRgb(255, 0, 0));
        QCOMPARE(topColor(-1, 0), qRgb(0, 0, 255));
    }

    void ofTooManyLayersTheTopmostArePainted()
    {
        SlideDesign design;
        for (int i = 0; i < 1000; ++i) {
            SlideElement layer;
            layer.id = QString::number(i);
            layer.zIndex = i;
            layer.visible = i < 900;
            design.elements.append(layer);
        }
        const QList<SlideElement> painted = paintedLayers(design);
        QCOMPARE(painted.size(), mostPaintedLayers);
        QCOMPARE(painted.constFirst().id, QString::number(900 - mostPaintedLayers));
        QCOMPARE(painted.constLast().id, QStringLiteral("899"));
        design.elements = painted;
        QCOMPARE(paintedLayers(design), painted);
    }

    void ofTooManyShadowsTheTopmostArePainted_data()
    {
        QTest::addColumn<double>("width"); // of each layer, which is as high as the canvas
        QTest::addColumn<qsizetype>("expected"); // shadows
        QTest::newRow("a twentieth of the canvas") << 1920 / 20.0 << qsizetype(200);
        QTest::newRow("half of it") << 1920 / 2.0 << qsizetype(2 * mostBlurredCanvases);
        QTest::newRow("all of it") << 1920.0 << qsizetype(mostBlurredCanvases);
        QTest::newRow("far more") << 1e300 << qsizetype(mostBlurredCanvases);
    }

    void ofTooManyShadowsTheTopmostArePainted()
    {
        QFETCH(double, width);
        QFETCH(qsizetype, expected);
        SlideDesign design;
        for (int i = 0; i < 200; ++i) {
            SlideElement layer;
            layer.id = QString::number(i);
            layer.zIndex = i;
            layer.frame = {0, 0, width, 1080};
            layer.text = TextElementProperties::lyric(QStringLiteral("Grace"));
            layer.text->shadow->radius = 0;
            design.elements.append(layer);
        }
        const QList<SlideElement> painted = paintedLayers(design);
        QCOMPARE(painted.size(), 200);
        for (qsizetype i = 0; i < 200; ++i)
            QCOMPARE(painted.at(i).text->shadow.has_value(), i >= 200 - expected);
        // What is left is everything else.
        QCOMPARE(painted.constFirst().text->text, QStringLiteral("Grace"));
    }

    void aHiddenLayerIsNeitherDrawnNorOutlinedEvenWhenSelected()
    {
        SlideElement hidden = rectangleLayer(QStringLiteral("hidden"), {0, 0, 1920, 1080}, red, 1);
        hidden.visible = false;
        const QImage image = rendered(
            {.slide = slideOver(gray, {hidden}), .selectedElementID = QStringLiteral("hidden")},
            {192, 108});
        QImage plain = rendered({.slide = slideOver(gray, {})}, {192, 108});
        QCOMPARE(image, plain);
    }

    void aSelectedLayersOutlineRunsDashedAlongTheSlidesEdges()
    {
        const SlideElement layer =
            rectangleLayer(QStringLiteral("layer"), {800, 400, 300, 200}, red, 1);
        const QImage image = rendered(
            {.slide = slideOver(gray, {layer}), .selectedElementID = QStringLiteral("layer")},
            canvas);
        // Width 2 on the edge leaves one pixel inside; dashes of 7 and gaps of 5.
        QVERIFY(isAmber(image.pixel(3, 0)));
        QCOMPARE(image.pixel(9, 0), qRgb(128, 128, 128));
        QVERIFY(isAmber(image.pixel(15, 0)));
        QCOMPARE(image.pixel(800, 395), qRgb(128, 128, 128));

        const QImage other = rendered(
            {.slide = slideOver(gray, {layer}), .selectedElementID = QStringLiteral("none such")},
            canvas);
        QVERIFY(!isAmber(other.pixel(3, 0)));
    }

    void aSelectedLayersOutlineNeitherTurnsNorFadesWithIt()
    {
        SlideElement layer = rectangleLayer(QStringLiteral("layer"), {800, 400, 300, 200}, red, 1);
        layer.rotation = 45;
        layer.opacity = 0;
        const QImage image = rendered(
            {.slide = slideOver(gray, {layer}), .selectedElementID = QStringLiteral("layer")},
            canvas);
        const auto amberPixels = [&](const QPoint &start, const QPoint &step) {
            int count = 0;
            for (QPoint place = start; image.rect().contains(place); place += step)
                count += isAmber(image.pixel(place)) ? 1 : 0;
            return count;
        };
        // Seven in twelve of every edge.
        QVERIFY(std::abs(amberPixels({0, 0}, {1, 0}) - 1920 * 7 / 12) <= 12);
        QVERIFY(std::abs(amberPixels({0, 1079}, {1, 0}) - 1920 * 7 / 12) <= 12);
        QVERIFY(std::abs(amberPixels({0, 0}, {0, 1}) - 1080 * 7 / 12) <= 12);
        QVERIFY(std::abs(amberPixels({1919, 0}, {0, 1}) - 1080 * 7 / 12) <= 12);
    }

    void theSafeAreaGuideInsetsNinetyAndSeventyFiveUnits_data()
    {
        QTest::addColumn<CanvasSize>("size");
        QTest::addColumn<double>("scale");
        QTest::addColumn<QRectF>("guide");
        QTest::newRow("at scale 1")
            << CanvasSize{1920, 1080} << 1.0 << QRectF(QPointF(90, 75), QPointF(1830, 1005));
        QTest::newRow("halved") << CanvasSize{1920, 1080} << 0.5
                                << QRectF(QPointF(45, 37.5), QPointF(915, 502.5));
        QTest::newRow("at 4K") << CanvasSize{1920, 1080} << 2.0
                               << QRectF(QPointF(180, 150), QPointF(3660, 2010));
        QTest::newRow("on a square canvas")
            << CanvasSize{1000, 1000} << 1.0 << QRectF(QPointF(90, 75), QPointF(910, 925));
    }

    void theSafeAreaGuideInsetsNinetyAndSeventyFiveUnits()
    {
        QFETCH(CanvasSize, size);
        QFETCH(double, scale);
        QFETCH(QRectF, guide);
        Slide slide = slideOver(gray, {});
        slide.design.canvasSize = size;
        QCOMPARE((SlideDesignRenderView{slide, scale}.safeArea()), guide);
    }

    void theSafeAreaGuideIsDashedInWhiteOverItsEdges()
    {
        const Slide slide = slideOver({0, 0, 0, 1}, {});
        const QImage image = rendered({.slide = slide, .showSafeArea = true}, canvas);
        // A line of width 1 over an edge between two pixels gives half of itself to each.
        const int half = qRound(255 * 0.35 / 2);
        int lit = 0;
        for (int x = 90; x < 1830; ++x) {
            const int above = qRed(image.pixel(x, 74));
            const int below = qRed(image.pixel(x, 75));
            QVERIFY(above <= half + 1);
            lit += above >= half - 2 && below >= half - 2 ? 1 : 0;
        }
        QVERIFY(std::abs(lit - 1740 / 2) <= 8);
        QCOMPARE(image.pixel(960, 72), qRgb(0, 0, 0));
        QCOMPARE(image.pixel(960, 77), qRgb(0, 0, 0));
    }

    void theSafeAreaGuideNeedsBothSwitches()
    {
        Slide slide = slideOver(gray, {});
        const QImage plain = rendered({.slide = slide}, canvas);
        const QImage guided = rendered({.slide = slide, .showSafeArea = true}, canvas);
        QVERIFY(guided.pixel(93, 75) != plain.pixel(93, 75)
                || guided.pixel(93, 74) != plain.pixel(93, 74));
        slide.design.safeAreaEnabled = false;
        QCOMPARE(rendered({.slide = slide, .showSafeArea = true}, canvas), plain);
    }

    void aRectangleWithStrokeWidthZeroDrawsNoStroke()
    {
        SlideElement layer = rectangleLayer(QStringLiteral("layer"), {100, 100, 400, 300}, red, 1);
        const QImage plain = rendered({.slide = slideOver(gray, {layer})}, canvas);
        layer.shape->stroke = blue;
        QCOMPARE(rendered({.slide = slideOver(gray, {layer})}, canvas), plain);
        layer.shape->strokeWidth = 8;
        QCOMPARE(rendered({.slide = slideOver(gray, {layer})}, canvas).pixel(100, 200),
                 qRgb(0, 0, 255));
    }

    void aStrokeKeepsItsScreenWidthAtEveryScale()
    {
        SlideElement layer = rectangleLayer(QStringLiteral("layer"), {480, 270, 960, 540}, red, 1);
        layer.shape->stroke = blue;
        layer.shape->strokeWidth = 6;
        for (const int divisor : {1, 4}) {
            const QImage image = rendered({.slide = slideOver(gray, {layer})}, canvas / divisor);
            const int y = 540 / divisor;
            const int edge = 480 / divisor;
            int bluePixels = 0;
            for (int x = edge - 10; x < edge + 10; ++x)
                bluePixels += image.pixel(x, y) == qRgb(0, 0, 255) ? 1 : 0;
            QCOMPARE(bluePixels, 6);
        }
    }

    void aCornerRadiusKeepsItsScreenSizeAtEveryScale()
    {
        SlideElement layer = rectangleLayer(QStringLiteral("layer"), {0, 0, 1920, 1080}, red, 1);
        layer.shape->cornerRadius = 30;
        const QRect corner(0, 0, 60, 60);
        const Slide slide = slideOver(gray, {layer});
        const QImage large = rendered({.slide = slide}, canvas).copy(corner);
        const QImage small = rendered({.slide = slide}, canvas / 4).copy(corner);
        QCOMPARE(small, large);
        QCOMPARE(large.pixel(2, 2), qRgb(128, 128, 128));
        QCOMPARE(large.pixel(50, 50), qRgb(255, 0, 0));
    }

    void aCapsuleIsRoundAtItsEndsAndALineFillsItsBox()
    {
        SlideElement layer = rectangleLayer(QStringLiteral("layer"), {100, 100, 400, 100}, red, 1);
        layer.shape->kind = ShapeKind::capsule;
        const QImage capsule = rendered({.slide = slideOver(gray, {layer})}, canvas);
        QCOMPARE(capsule.pixel(102, 102), qRgb(128, 128, 128));
        QCOMPARE(capsule.pixel(102, 150), qRgb(255, 0, 0));
        layer.shape->kind = ShapeKind::line;
        layer.shape->cornerRadius = 30;
        const QImage line = rendered({.slide = slideOver(gray, {layer})}, canvas);
        QCOMPARE(line.pixel(101, 101), qRgb(255, 0, 0));
    }

    void rotationIsClockwiseAboutTheMiddleOfTheBox()
    {
        SlideElement layer = rectangleLayer(QStringLiteral("layer"), {800, 500, 400, 100}, red, 1);
        layer.rotation = 90;
        const QImage image = rendered({.slide = slideOver(gray, {layer})}, canvas);
        QCOMPARE(image.pixel(1000, 360), qRgb(255, 0, 0));
        QCOMPARE(image.pixel(820, 550), qRgb(128, 128, 128));

        // At an eighth of a turn the right end goes down.
        layer.rotation = 45;
        const QImage turned = rendered({.slide = slideOver(gray, {layer})}, canvas);
        QCOMPARE(turned.pixel(1120, 670), qRgb(255, 0, 0));
        QCOMPARE(turned.pixel(1120, 430), qRgb(128, 128, 128));
    }

    void opacityFadesALayerAsAWhole()
    {
        SlideElement layer =
            rectangleLayer(QStringLiteral("layer"), {480, 270, 960, 540}, {1, 1, 1, 1}, 1);
        layer.shape->stroke = RGBAColor{1, 1, 1, 1};
        layer.shape->strokeWidth = 40;
        layer.opacity = 0.5;
        const QImage image = rendered({.slide = slideOver({0, 0, 0, 1}, {layer})}, canvas);
        // The stroke overlaps the fill; both together are no brighter than either.
        QVERIFY(std::abs(qRed(image.pixel(490, 540)) - 128) <= 1);
        QVERIFY(std::abs(qRed(image.pixel(960, 540)) - 128) <= 1);
        layer.opacity = 0;
        QCOMPARE(rendered({.slide = slideOver({0, 0, 0, 1}, {layer})}, canvas).pixel(960, 540),
                 qRgb(0, 0, 0));
    }

    void anImageLayerFillsItsBoxAtItsAspectRatio()
    {
        SlideElement layer = emptyImageLayer();
        QImage wide(800, 200, QImage::Format_RGB32);
        wide.fill(Qt::green);
        // Only what is cut off at the sides is of another colour.
        QPainter painter(&wide);
        painter.fillRect(0, 0, 200, 200, Qt::red);
        painter.fillRect(600, 0, 200, 200, Qt::red);
        painter.end();
        layer.image = mediaOf(encoded(wide, "PNG"));
        const QImage image = rendered({.slide = slideOver(gray, {layer})}, canvas);
        QCOMPARE(image.pixel(102, 102), qRgb(0, 255, 0));
        QCOMPARE(image.pixel(497, 497), qRgb(0, 255, 0));
        QCOMPARE(image.pixel(98, 300), qRgb(128, 128, 128));
    }

    void anImageLayerWithoutAnImageShowsAPlaceholder()
    {
        const QImage image = rendered({.slide = slideOver(gray, {emptyImageLayer()})}, canvas);
        const int dimmed = qRound(128 * (1 - 0.32));
        QVERIFY(std::abs(qRed(image.pixel(200, 200)) - dimmed) <= 1);
    }

    void thePlaceholdersDashesAreTwoPointsWideAndLieWithinTheLayer()
    {
        const QImage image = rendered({.slide = slideOver(gray, {emptyImageLayer()})}, canvas);
        const int dimmed = qRound(128 * (1 - 0.32));
        const int dash = qRound(dimmed + (255 - dimmed) * 0.35);
        const auto isShade = [&](int x, int y, int shade) {
            return std::abs(qRed(image.pixel(x, y)) - shade) <= 1;
        };
        // From the top left corner on, eight points are dashed and six are not.
        for (const int y : {100, 101})
            QVERIFY(isShade(105, y, dash) && isShade(111, y, dimmed));
        QVERIFY(isShade(105, 99, 128) && isShade(105, 102, dimmed));
        int dashed = 0;
        for (int x = 102; x < 498; ++x)
            dashed += int(isShade(x, 498, dash) && isShade(x, 499, dash));
        QVERIFY(std::abs(dashed - 396 * 8 / 14) <= 14);
    }

    void aLowerThirdHasItsBarBesideItsTextOverItsFill()
    {
        SlideElement layer;
        layer.id = QStringLiteral("name");
        layer.kind = SlideElementKind::lowerThird;
        layer.frame = {100, 800, 900, 160};
        layer.lowerThird =
            LowerThirdProperties{QStringLiteral("Ana"), QStringLiteral("Guest"), blue, red};
        const QImage image = rendered({.slide = slideOver(gray, {layer})}, canvas);
        QCOMPARE(image.pixel(110, 810), qRgb(0, 0, 255));
        QCOMPARE(image.pixel(132, 880), qRgb(255, 0, 0));
        QCOMPARE(image.pixel(140, 880), qRgb(0, 0, 255));
        layer.lowerThird.reset();
        QCOMPARE(rendered({.slide = slideOver(gray, {layer})}, canvas).pixel(132, 880),
                 qRgb(128, 128, 128));
    }

    void ofALowerThirdWithOneLineThatIsCentred()
    {
        SlideElement layer;
        layer.id = QStringLiteral("name");
        layer.kind = SlideElementKind::lowerThird;
        layer.frame = {100, 800, 900, 160};
        const RGBAColor black{0, 0, 0, 1};
        const auto ink = [&](const QString &title, const QString &subtitle) {
            layer.lowerThird = LowerThirdProperties{title, subtitle, black, black};
            return inkOf(rendered({.slide = slideOver(black, {layer})}, canvas));
        };
        const auto middle = [&](const QString &title, const QString &subtitle) {
            return ink(title, subtitle).center().y();
        };
        const QString letter = QStringLiteral("H");
        QVERIFY(std::abs(middle(letter, {}) - 880) <= 2);
        QVERIFY(std::abs(middle(letter, QStringLiteral("  ")) - 880) <= 2);
        QVERIFY(std::abs(middle({}, letter) - 880) <= 2);
        QVERIFY(ink(letter, letter).top() < 850);
    }

    void aSlideIsAsSharpAsTheScreenItIsDrawnOn()
    {
        const Slide slide =
            slideOver(gray, {rectangleLayer(QStringLiteral("layer"), {0, 0, 961, 1080}, red, 1)});
        const QImage image = rendered({.slide = slide}, canvas / 2, 2);
        QCOMPARE(image.pixel(960, 540), qRgb(255, 0, 0));
        QCOMPARE(image.pixel(961, 540), qRgb(128, 128, 128));
    }

    void numbersBeyondAllMeasureDrawSomethingAndComeToAnEnd_data()
    {
        QTest::addColumn<double>("number");
        for (const double number : {1e6, 1e12, 1e300, -1e12})
            QTest::addRow("%g", number) << number;
    }

    void numbersBeyondAllMeasureDrawSomethingAndComeToAnEnd()
    {
        QFETCH(double, number);
        Slide slide = slideWith(SlideDesign::centeredLyric(QStringLiteral("Sing"), {}));
        slide.design.background.kind = SlideBackgroundKind::image;
        slide.design.background.image = solidImage({8, 8}, Qt::red);
        slide.design.background.blurAmount = number;
        SlideElement &element = slide.design.elements.first();
        element.text->shadow = TextShadow{{0, 0, 0, 1}, number, number, number};
        element.text->outline = TextOutline{{0, 0, 0, 1}, number};
        element.opacity = 0.5;
        element.rotation = number;
        const QImage image = rendered({.slide = slide}, {192, 108});
        QVERIFY(image.pixel(96, 54) != magenta);
        element.text->fontSize = number;
        element.text->padding = number;
        element.frame = {number, number, number, number};
        rendered({.slide = slide}, {192, 108});
    }

    void thePainterIsLeftAsItWasFound()
    {
        QImage image(320, 180, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        painter.translate(3, 4);
        painter.setPen(Qt::green);
        const QTransform transform = painter.transform();
        paintAnew({.slide = slideWith(SlideDesign::centeredLyric(QStringLiteral("a"), {}))},
                  painter, QRectF(0, 0, 160, 90));
        QCOMPARE(painter.transform(), transform);
        QCOMPARE(painter.pen().color(), QColor(Qt::green));
        QCOMPARE(painter.opacity(), 1.0);
        QVERIFY(!painter.hasClipping());
    }
};

QUENARA_GUI_TEST(TestSlideRenderer)

} // namespace tst_slide_renderer

#include "tst_slide_renderer.moc"
