#include "GuiTestSupport.h"
#include "Pictures.h"
#include "SlideBackgroundRenderView.h"

#include <cmath>

using namespace quenara;
using namespace quenara::test;

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

QImage picture(const SlideBackground &background)
{
    return rendered({.slide = slideWith(designOver(background))}, canvas);
}

/// How far along the gradient the middle of a pixel lies, 0 to 1, by the gradient's definition.
double progress(GradientDirection direction, double x, double y)
{
    constexpr double width = 1920;
    constexpr double height = 1080;
    switch (direction) {
    case GradientDirection::vertical:
        return y / height;
    case GradientDirection::horizontal:
        return x / width;
    case GradientDirection::diagonal:
        return (x * width + y * height) / (width * width + height * height);
    case GradientDirection::radialHint:
        break;
    }
    return std::min(1.0, std::hypot(x - width / 2, y - height / 2) / 760);
}

QColor mixed(double t)
{
    return QColor::fromRgbF(float(startColor.red + t * (endColor.red - startColor.red)),
                            float(startColor.green + t * (endColor.green - startColor.green)),
                            float(startColor.blue + t * (endColor.blue - startColor.blue)));
}

int difference(const QColor &a, const QColor &b)
{
    return std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                     std::abs(a.blue() - b.blue())});
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
        const QImage image = picture(gradient(direction));
        for (int y = 0; y < canvas.height(); y += 60) {
            for (int x = 0; x < canvas.width(); x += 60) {
                const QColor expected = mixed(progress(direction, x + 0.5, y + 0.5));
                QVERIFY2(difference(image.pixelColor(x, y), expected) <= 2,
                         qPrintable(QStringLiteral("at %1, %2").arg(x).arg(y)));
            }
        }
    }

    void gradientsEndWhereTheirDirectionSays_data()
    {
        QTest::addColumn<GradientDirection>("direction");
        QTest::addColumn<QPointF>("start");
        QTest::addColumn<QPointF>("end");
        QTest::newRow("vertical") << GradientDirection::vertical << QPointF(500, 20)
                                  << QPointF(500, 560);
        QTest::newRow("horizontal")
            << GradientDirection::horizontal << QPointF(20, 290) << QPointF(980, 290);
        QTest::newRow("diagonal") << GradientDirection::diagonal << QPointF(20, 20)
                                  << QPointF(980, 560);
    }

    void gradientsEndWhereTheirDirectionSays()
    {
        QFETCH(GradientDirection, direction);
        QFETCH(QPointF, start);
        QFETCH(QPointF, end);
        const SlideBackgroundRenderView view{gradient(direction), 0.5};
        const QBrush brush = view.gradientFill({20, 20, 960, 540});
        QCOMPARE(brush.style(), Qt::LinearGradientPattern);
        const auto *linear = static_cast<const QLinearGradient *>(brush.gradient());
        QCOMPARE(linear->start(), start);
        QCOMPARE(linear->finalStop(), end);
        QCOMPARE(linear->spread(), QGradient::PadSpread);
    }

    void aSoftCentreReachesAsFarAsTheScaleSays()
    {
        for (const double scale : {0.25, 0.5, 2.0}) {
            const SlideBackgroundRenderView view{gradient(GradientDirection::radialHint), scale};
            const QBrush brush = view.gradientFill({20, 20, 960, 540});
            QCOMPARE(brush.style(), Qt::RadialGradientPattern);
            const auto *radial = static_cast<const QRadialGradient *>(brush.gradient());
            QCOMPARE(radial->center(), QPointF(500, 290));
            QCOMPARE(radial->focalPoint(), radial->center());
            QCOMPARE(radial->centerRadius(), 760 * scale);
            QCOMPARE(radial->focalRadius(), 0.0);
        }
    }

    void aGradientWithoutColoursIsTheSolidColour()
    {
        SlideBackground background = gradient(GradientDirection::vertical);
        background.gradient.reset();
        QCOMPARE(picture(background).pixel(960, 540), qRgb(0, 255, 0));
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
        const QImage image = picture(background);
        QCOMPARE(image.pixel(1, 1), qRgb(0, 0, 255));
        QCOMPARE(image.pixel(1918, 1078), qRgb(0, 0, 255));
    }

    void mediaThatDoesNotDecodeFallsBackToTheGradientAndThenToTheSolidColour_data()
    {
        QTest::addColumn<QByteArray>("dataUrl");
        QTest::newRow("a data URL without a comma") << QByteArray("data:image/png;base64");
        QTest::newRow("base64 with a line break")
            << solidPicture({4, 4}, Qt::blue).dataUrl.insert(40, "\n");
        QTest::newRow("bytes that are no picture") << QByteArray("data:image/png;base64,aGVsbG8=");
        QTest::newRow("a path to nothing") << QByteArray("/nonexistent/picture.png");
        QTest::newRow("a file URL to nothing") << QByteArray("file:///nonexistent/picture.png");
        QTest::newRow("nothing at all") << QByteArray();
    }

    void mediaThatDoesNotDecodeFallsBackToTheGradientAndThenToTheSolidColour()
    {
        QFETCH(QByteArray, dataUrl);
        SlideBackground background = gradient(GradientDirection::horizontal);
        const QImage expected = picture(background);
        background.kind = SlideBackgroundKind::image;
        background.image = SlideMedia{dataUrl, {}, {}};
        QCOMPARE(picture(background), expected);
        background.gradient.reset();
        QCOMPARE(picture(background).pixel(0, 0), qRgb(0, 255, 0));
    }

    void aVideoIsItsSolidColourWithACaption()
    {
        SlideBackground background = solidBackground({0, 0, 0, 1});
        background.kind = SlideBackgroundKind::video;
        background.video = VideoBackground{QStringLiteral("clip.mp4"), std::nullopt};
        const QImage image = picture(background);
        QCOMPARE(image.pixel(100, 100), qRgb(0, 0, 0));
        int brightest = 0;
        for (int y = 520; y < 560; ++y) {
            for (int x = 820; x < 1100; ++x)
                brightest = std::max(brightest, qRed(image.pixel(x, y)));
        }
        QVERIFY(std::abs(brightest - qRound(255 * 0.38)) <= 2);
    }

    void dimmingZeroOrLessDrawsNothingAndHalfDarkensByHalf()
    {
        SlideBackground background = solidBackground({1, 1, 1, 1});
        QCOMPARE(picture(background).pixel(5, 5), qRgb(255, 255, 255));
        background.dimAmount = -0.5;
        QCOMPARE(picture(background).pixel(5, 5), qRgb(255, 255, 255));
        background.dimAmount = 0.5;
        QVERIFY(std::abs(qRed(picture(background).pixel(5, 5)) - 128) <= 1);
        background.dimAmount = 7;
        QCOMPARE(picture(background).pixel(5, 5), qRgb(0, 0, 0));
    }
};

QUENARA_GUI_TEST_MAIN(TestSlideBackground)
#include "tst_slide_background.moc"
