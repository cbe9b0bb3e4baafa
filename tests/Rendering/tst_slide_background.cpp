#include "GradientFill.h"
#include "GuiTestSupport.h"
#include "Images.h"
#include "SlideRendererView.h"

#include <algorithm>
#include <cmath>

using namespace quenara;
using namespace quenara::test;

namespace tst_slide_background {

namespace {

constexpr QSize canvas(1920, 1080);
const RGBAColor startColor{0.1, 0.2, 0.3, 1};
const RGBAColor endColor{0.9, 0.6, 0.4, 1};

SlideBackground gradient(GradientDirection direction)
{
    SlideBackground background = solidBackground({0, 1, 0, 1});
    background.kind = SlideBackgroundKind::gradient;
    background.gradient = GradientBackground{startColor, endColor, direction};
    return background;
}

QImage imageOf(const SlideBackground &background)
{
    return rendered({.slide = slideWith(designOver(background))}, canvas);
}

/// How far along the gradient a point of a slide lies, 0 to 1, by the gradient's definition.
double progress(GradientDirection direction, const QPointF &point, const QSizeF &slide,
                double endRadius)
{
    const double width = slide.width();
    const double height = slide.height();
    switch (direction) {
    case GradientDirection::vertical:
        return point.y() / height;
    case GradientDirection::horizontal:
        return point.x() / width;
    case GradientDirection::diagonal:
        return (point.x() * width + point.y() * height) / (width * width + height * height);
    case GradientDirection::radialHint:
        break;
    }
    return std::min(1.0, std::hypot(point.x() - width / 2, point.y() - height / 2) / endRadius);
}

QColor mixed(double t)
{
    return QColor::fromRgbF(float(startColor.red + t * (endColor.red - startColor.red)),
                            float(startColor.green + t * (endColor.green - startColor.green)),
                            float(startColor.blue + t * (endColor.blue - startColor.blue)));
}

GradientFill fill(GradientDirection direction)
{
    return {direction, startColor.toColor(), endColor.toColor(), 100};
}

int difference(const QColor &a, const QColor &b)
{
    return std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                     std::abs(a.blue() - b.blue())});
}

/// A slide of an image without blur, or with one.
SlideBackground imageBackground(const QImage &image, double blurAmount = 0)
{
    SlideBackground background = solidBackground({0, 0, 0, 1});
    background.kind = SlideBackgroundKind::image;
    background.image = mediaOf(encoded(image, "PNG"));
    background.blurAmount = blurAmount;
    return background;
}

QImage solid(const QSize &size, const QColor &color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

} // namespace

class TestSlideBackground : public GuiTest
{
    Q_OBJECT

private slots:
    void gradientsRunAsTheirDirectionSays_data()
    {
        QTest::addColumn<GradientDirection>("direction");
        for (const GradientDirection direction : allCases<GradientDirection>())
            QTest::newRow(qPrintable(rawValue(direction))) << direction;
    }

    void gradientsRunAsTheirDirectionSays()
    {
        QFETCH(GradientDirection, direction);
        const QImage image = imageOf(gradient(direction));
        for (int y = 0; y < canvas.height(); y += 60) {
            for (int x = 0; x < canvas.width(); x += 60) {
                const QColor expected = mixed(progress(direction, {x + 0.5, y + 0.5}, canvas, 760));
                QVERIFY2(difference(image.pixelColor(x, y), expected) <= 2,
                         qPrintable(QStringLiteral("at %1, %2").arg(x).arg(y)));
            }
        }
    }

    void gradientsFillTheirSlideWhereverItLiesAndNothingElse_data()
    {
        QTest::addColumn<GradientDirection>("direction");
        QTest::addColumn<QSize>("size");
        for (const GradientDirection direction : allCases<GradientDirection>()) {
            for (const QSize size : {QSize(480, 270), QSize(171, 96), QSize(96, 171), QSize(7, 400),
                                     QSize(400, 7), QSize(1, 1)}) {
                QTest::addRow("%s %dx%d", qPrintable(rawValue(direction)), size.width(),
                              size.height())
                    << direction << size;
            }
        }
    }

    void gradientsFillTheirSlideWhereverItLiesAndNothingElse()
    {
        QFETCH(GradientDirection, direction);
        QFETCH(QSize, size);
        const QRect slide(QPoint(13, 9), size);
        QImage image(slide.size() + QSize(40, 30), QImage::Format_RGB32);
        image.fill(Qt::green);
        QPainter painter(&image);
        // In coordinates of its own, as on a screen of two pixels a point.
        painter.scale(2, 2);
        fill(direction).paint(painter, {QPointF(slide.topLeft()) / 2, QSizeF(slide.size()) / 2});
        painter.end();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QPointF middle = QPointF(x, y) + QPointF(0.5, 0.5) - slide.topLeft();
                const QColor expected = slide.contains(x, y)
                    ? mixed(progress(direction, middle, size, 100 * 2))
                    : QColor(Qt::green);
                QVERIFY2(difference(image.pixelColor(x, y), expected) <= 1,
                         qPrintable(QStringLiteral("at %1, %2").arg(x).arg(y)));
            }
        }
    }

    void aPartOfAGradientIsPaintedAsInTheWhole_data() { gradientsRunAsTheirDirectionSays_data(); }

    void aPartOfAGradientIsPaintedAsInTheWhole()
    {
        QFETCH(GradientDirection, direction);
        const QRect part(50, 40, 30, 61);
        QImage whole(200, 150, QImage::Format_RGB32);
        QImage inPart(whole.size(), QImage::Format_RGB32);
        for (QImage *image : {&whole, &inPart}) {
            image->fill(Qt::green);
            QPainter painter(image);
            if (image == &inPart)
                painter.setClipRect(part);
            fill(direction).paint(painter, {10, 10, 180, 130});
        }
        QCOMPARE(inPart.copy(part), whole.copy(part));
        QCOMPARE(inPart.pixel(part.left() - 1, part.top()), qRgb(0, 255, 0));
        QCOMPARE(inPart.pixel(part.left(), part.bottom() + 1), qRgb(0, 255, 0));
    }

    void aSoftCentreReachesAsFarAsTheScaleSays()
    {
        for (const int width : {480, 960, 3840}) {
            const QImage image =
                rendered({.slide = slideWith(designOver(gradient(GradientDirection::radialHint)))},
                         {width, width * 9 / 16});
            const QPoint middle(image.width() / 2, image.height() / 2);
            const auto along = [&](double distance) {
                return image.pixelColor(middle + QPoint(int(distance * width / 1920), 0));
            };
            QVERIFY(difference(along(0), mixed(0)) <= 2);
            QVERIFY(difference(along(380), mixed(0.5)) <= 2);
            QVERIFY(difference(along(740), mixed(0.97)) <= 3);
            QVERIFY(difference(along(765), mixed(1)) <= 1);
            QVERIFY(difference(along(950), mixed(1)) <= 1);
        }
    }

    void aSlideBeyondAllMeasureIsOfOneColourThroughEveryTransform()
    {
        const QTransform transforms[] = {QTransform(), QTransform::fromTranslate(30, 20),
                                         QTransform::fromScale(3, 2),
                                         QTransform::fromTranslate(-500, -500)};
        for (const QTransform &transform : transforms) {
            QImage image(60, 40, QImage::Format_RGB32);
            image.fill(Qt::green);
            QPainter painter(&image);
            painter.setTransform(transform);
            fill(GradientDirection::horizontal).paint(painter, {-3e6, -3e6, 6e6, 6e6});
            QCOMPARE(painter.transform(), transform);
            painter.end();
            QImage expected(image.size(), image.format());
            expected.fill(mixed(0));
            QCOMPARE(image, expected);
        }
    }

    void aSoftCentreWithoutRadiusIsAllEnd()
    {
        QImage image(9, 9, QImage::Format_RGB32);
        QPainter painter(&image);
        GradientFill nowhere = fill(GradientDirection::radialHint);
        nowhere.endRadius = 0;
        nowhere.paint(painter, image.rect());
        painter.end();
        QVERIFY(difference(image.pixelColor(0, 0), mixed(1)) <= 1);
        QVERIFY(difference(image.pixelColor(8, 4), mixed(1)) <= 1);
    }

    void aTranslucentGradientLetsThroughWhatLiesBelow()
    {
        SlideBackground background = gradient(GradientDirection::horizontal);
        background.gradient->startColor.alpha = 0;
        background.gradient->endColor.alpha = 0.5;
        QImage image(canvas, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        paintAnew({.slide = slideWith(designOver(background))}, painter, image.rect());
        painter.end();
        QVERIFY(difference(image.pixelColor(0, 540), Qt::white) <= 1);
        const QColor half = QColor::fromRgbF(0.95F, 0.8F, 0.7F);
        QVERIFY(difference(image.pixelColor(1919, 540), half) <= 2);
    }

    void aGradientWithoutColoursIsTheSolidColour()
    {
        SlideBackground background = gradient(GradientDirection::vertical);
        background.gradient.reset();
        QCOMPARE(imageOf(background).pixel(960, 540), qRgb(0, 255, 0));
    }

    void anImageFillsTheSlide()
    {
        SlideBackground background = gradient(GradientDirection::vertical);
        background.kind = SlideBackgroundKind::image;
        QImage square(40, 40, QImage::Format_RGB32);
        square.fill(Qt::blue);
        // Only what is cut off above is of another colour.
        QPainter painter(&square);
        painter.fillRect(0, 0, 40, 8, Qt::red);
        painter.end();
        background.image = mediaOf(encoded(square, "PNG"));
        const QImage image = imageOf(background);
        QCOMPARE(image.pixel(1, 1), qRgb(0, 0, 255));
        QCOMPARE(image.pixel(1918, 1078), qRgb(0, 0, 255));
    }

    void aDarkenedImageIsExactOnAverage_data()
    {
        QTest::addColumn<double>("dim");
        QTest::addColumn<bool>("isOpaque");
        for (const double dim : {0.1, 0.35, 0.5, 0.82, 1.0}) {
            QTest::addRow("%g", dim) << dim << true;
            QTest::addRow("%g, translucent", dim) << dim << false;
        }
    }

    void aDarkenedImageIsExactOnAverage()
    {
        QFETCH(double, dim);
        QFETCH(bool, isOpaque);
        constexpr int part = 16; // of one colour, each way
        const QSize size(16 * part, 9 * part);
        const auto colorAt = [&](int x, int y) {
            const int shade = 16 * (x / part) + 15 * (y / part) / 8;
            return QColor(shade, 255 - shade, shade / 2, isOpaque ? 255 : 255 - shade / 3);
        };
        QImage image(size, QImage::Format_ARGB32);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x)
                image.setPixelColor(x, y, colorAt(x, y));
        }
        SlideBackground background = imageBackground(image);
        background.dimAmount = dim;
        QImage shown(size, QImage::Format_RGB32);
        shown.fill(Qt::black);
        QPainter painter(&shown);
        paintAnew({.slide = slideWith(designOver(background))}, painter, shown.rect());
        painter.end();
        for (int top = 0; top < size.height(); top += part) {
            for (int left = 0; left < size.width(); left += part) {
                const QColor bright = colorAt(left, top);
                const double expected = bright.green() * double(bright.alphaF()) * (1 - dim);
                double sum = 0;
                for (int i = 0; i < part * part; ++i) {
                    const int green = qGreen(shown.pixel(left + i % part, top + i / part));
                    // A translucent one is rounded before it is darkened.
                    QVERIFY(std::abs(green - expected) <= (isOpaque ? 1 : 1.5));
                    sum += green;
                }
                QVERIFY(std::abs(sum / (part * part) - expected) <= (isOpaque ? 0.25 : 0.75));
            }
        }
    }

    void aPartOfADarkenedImageIsPaintedAsInTheWhole()
    {
        SlideBackground background = imageBackground(rendered({}, {64, 64}));
        background.dimAmount = 0.3;
        const SlideRendererView view{.slide = slideWith(designOver(background))};
        const QRect part(50, 77, 130, 61);
        const QImage whole = rendered(view, {320, 180});
        QImage inPart(whole.size(), whole.format());
        inPart.fill(magenta);
        QPainter painter(&inPart);
        painter.setClipRect(part);
        paintAnew(view, painter, inPart.rect());
        painter.end();
        QCOMPARE(inPart.copy(part), whole.copy(part));
        QCOMPARE(inPart.pixel(part.left() - 1, part.top()), magenta);
        QCOMPARE(inPart.pixel(part.left(), part.bottom() + 1), magenta);
    }

    void everyBackgroundCoversTheWholeOfThePixelsAlongItsEdges_data()
    {
        QTest::addColumn<SlideBackground>("background");
        const QImage photograph = solid({40, 30}, QColor(0, 90, 0));
        SlideBackground darkened = imageBackground(photograph);
        darkened.dimAmount = 0.5;
        SlideBackground video = solidBackground({0, 1, 0, 1});
        video.kind = SlideBackgroundKind::video;
        QTest::newRow("a solid colour") << solidBackground({0, 1, 0, 1});
        QTest::newRow("a gradient") << gradient(GradientDirection::diagonal);
        QTest::newRow("an image") << imageBackground(photograph);
        QTest::newRow("a darkened image") << darkened;
        QTest::newRow("a video") << video;
    }

    /// The slide is 1365.33 pixels wide and stands a third of a pixel to the right.
    void everyBackgroundCoversTheWholeOfThePixelsAlongItsEdges()
    {
        QFETCH(SlideBackground, background);
        const QImage image = rendered({.slide = slideWith(designOver(background))}, {1366, 768});
        for (const QPoint corner : {QPoint(0, 0), QPoint(0, 400), QPoint(700, 0), QPoint(700, 767),
                                    QPoint(1365, 400), QPoint(1365, 767)}) {
            const QPoint inside(std::clamp(corner.x(), 1, 1364), std::clamp(corner.y(), 1, 766));
            QVERIFY(difference(image.pixelColor(corner), image.pixelColor(inside)) <= 2);
        }
    }

    void aBlurredImageFadesOnlyWhereItEnds()
    {
        const auto blurred = [](const QSize &size) {
            return rendered(
                {.slide = slideWith(designOver(imageBackground(solid(size, Qt::green), 40)))},
                {960, 540});
        };
        const QColor whole = Qt::green;
        const QImage high = blurred({400, 300}); // the slide cuts it off above and below
        QVERIFY(difference(high.pixelColor(480, 0), whole) <= 1);
        QVERIFY(difference(high.pixelColor(480, 539), whole) <= 1);
        QVERIFY(difference(high.pixelColor(0, 270), whole) > 50);
        QVERIFY(difference(high.pixelColor(959, 270), whole) > 50);
        const QImage wide = blurred({800, 300});
        QVERIFY(difference(wide.pixelColor(480, 0), whole) > 50);
        QVERIFY(difference(wide.pixelColor(480, 539), whole) > 50);
        QVERIFY(difference(wide.pixelColor(0, 270), whole) <= 1);
        QVERIFY(difference(wide.pixelColor(959, 270), whole) <= 1);
    }

    /// What the slide cuts off is blurred into what it shows.
    void aBlurredImageIsCutOnlyOnceItIsBlurred()
    {
        QImage image = solid({400, 300}, Qt::black);
        QPainter painter(&image);
        painter.fillRect(0, 0, 400, 35, Qt::green); // the slide begins at 37.5
        painter.end();
        const QImage shown =
            rendered({.slide = slideWith(designOver(imageBackground(image, 60)))}, {960, 540});
        QVERIFY(shown.pixelColor(480, 0).green() > 60);
    }

    void mediaThatDoesNotDecodeFallsBackToTheGradientAndThenToTheSolidColour_data()
    {
        QTest::addColumn<QByteArray>("dataUrl");
        QTest::newRow("a data URL without a comma") << QByteArray("data:image/png;base64");
        QTest::newRow("base64 with a line break")
            << solidImage({4, 4}, Qt::blue).dataUrl.insert(40, "\n");
        QTest::newRow("bytes that are no image") << QByteArray("data:image/png;base64,aGVsbG8=");
        QTest::newRow("a path to nothing") << QByteArray("/nonexistent/image.png");
        QTest::newRow("a file URL to nothing") << QByteArray("file:///nonexistent/image.png");
        QTest::newRow("nothing at all") << QByteArray();
    }

    void mediaThatDoesNotDecodeFallsBackToTheGradientAndThenToTheSolidColour()
    {
        QFETCH(QByteArray, dataUrl);
        SlideBackground background = gradient(GradientDirection::horizontal);
        const QImage expected = imageOf(background);
        background.kind = SlideBackgroundKind::image;
        background.image = SlideMedia{dataUrl, {}, {}};
        QCOMPARE(imageOf(background), expected);
        background.gradient.reset();
        QCOMPARE(imageOf(background).pixel(0, 0), qRgb(0, 255, 0));
    }

    void aVideoIsItsSolidColourWithACaption()
    {
        SlideBackground background = solidBackground({0, 0, 0, 1});
        background.kind = SlideBackgroundKind::video;
        background.video = VideoBackground{QStringLiteral("clip.mp4"), std::nullopt};
        const QImage image = imageOf(background);
        QCOMPARE(image.pixel(100, 100), qRgb(0, 0, 0));
        int brightest = 0;
        for (int y = 520; y < 560; ++y) {
            for (int x = 820; x < 1100; ++x)
                brightest = std::max(brightest, qRed(image.pixel(x, y)));
        }
        QVERIFY(std::abs(brightest - qRound(255 * 0.38)) <= 2);
    }

    void darkeningLiesOverGradientsCaptionsImagesAndWhatShowsThrough()
    {
        const auto isDarkened = [](SlideBackground background, const QPoint &at) {
            const QColor bright = imageOf(background).pixelColor(at);
            background.dimAmount = 0.5;
            const QColor dark = imageOf(background).pixelColor(at);
            return bright.lightness() > 20
                && difference(dark, {bright.red() / 2, bright.green() / 2, bright.blue() / 2}) <= 1;
        };
        SlideBackground video = solidBackground({0.4, 0.4, 0.4, 1});
        video.kind = SlideBackgroundKind::video;
        QVERIFY(isDarkened(video, {100, 100}));
        for (int x = 830; x < 1090; x += 3) // across letters and what lies between them
            QVERIFY(isDarkened(video, {x, 540}));
        for (const GradientDirection direction : allCases<GradientDirection>())
            QVERIFY(isDarkened(gradient(direction), {700, 300}));
        SlideBackground image = solidBackground({0, 0, 0, 1});
        image.kind = SlideBackgroundKind::image;
        image.image = solidImage({4, 4}, Qt::white);
        QVERIFY(isDarkened(image, {700, 300}));

        SlideBackground clear = solidBackground({1, 1, 1, 0});
        clear.dimAmount = 0.5;
        QImage below(canvas, QImage::Format_RGB32);
        below.fill(Qt::white);
        QPainter painter(&below);
        paintAnew({.slide = slideWith(designOver(clear))}, painter, below.rect());
        painter.end();
        QVERIFY(std::abs(qRed(below.pixel(700, 300)) - 128) <= 1);
    }

    void dimmingZeroOrLessDrawsNothingAndHalfDarkensByHalf()
    {
        SlideBackground background = solidBackground({1, 1, 1, 1});
        QCOMPARE(imageOf(background).pixel(5, 5), qRgb(255, 255, 255));
        for (const double nothing : {-0.5, std::nan("")}) {
            background.dimAmount = nothing;
            QCOMPARE(imageOf(background).pixel(5, 5), qRgb(255, 255, 255));
        }
        background.dimAmount = 0.5;
        QVERIFY(std::abs(qRed(imageOf(background).pixel(5, 5)) - 128) <= 1);
        background.dimAmount = 7;
        QCOMPARE(imageOf(background).pixel(5, 5), qRgb(0, 0, 0));
    }
};

QUENARA_GUI_TEST(TestSlideBackground)

} // namespace tst_slide_background

#include "tst_slide_background.moc"
