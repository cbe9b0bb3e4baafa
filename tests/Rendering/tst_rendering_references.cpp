#include "GaussianBlur.h"
#include "Images.h"
#include "TextImages.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

using namespace quenara;
using namespace quenara::test;

namespace tst_rendering_references {

namespace {

/// One channel of an image as real numbers, 0 to 1.
struct Plane
{
    int width;
    int height;
    std::vector<double> values = std::vector<double>(std::size_t(width) * std::size_t(height));

    double &at(int x, int y)
    {
        return values[std::size_t(y) * std::size_t(width) + std::size_t(x)];
    }
    double at(int x, int y) const
    {
        return values[std::size_t(y) * std::size_t(width) + std::size_t(x)];
    }
};

using Channel = int (*)(QRgb);

Plane planeOf(const QImage &image, Channel channel)
{
    Plane plane{image.width(), image.height()};
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x)
            plane.at(x, y) = channel(line[x]) / 255.0;
    }
    return plane;
}

/// The plane convolved with a Gaussian, nothing lying outside it.
Plane gaussian(const Plane &plane, double sigma)
{
    const int reach = int(std::ceil(5 * sigma));
    std::vector<double> kernel; // from -reach on
    double sum = 0;
    for (int i = -reach; i <= reach; ++i) {
        kernel.push_back(std::exp(-i * i / (2 * sigma * sigma)));
        sum += kernel.back();
    }
    // What lies on a line of values that are some steps apart.
    const auto pass = [&](const Plane &from, int lines, int nextLine, int length, int step) {
        Plane to{from.width, from.height};
        for (int line = 0; line < lines; ++line) {
            const auto at = [&](int i) {
                return std::size_t(line) * nextLine + std::size_t(i) * step;
            };
            for (int i = 0; i < length; ++i) {
                const int last = std::min(i + reach, length - 1);
                double value = 0;
                for (int j = std::max(i - reach, 0); j <= last; ++j)
                    value += kernel[std::size_t(j) - i + reach] * from.values[at(j)];
                to.values[at(i)] = value / sum;
            }
        }
        return to;
    };
    const Plane across = pass(plane, plane.height, plane.width, plane.width, 1);
    return pass(across, plane.width, 1, plane.height, plane.width);
}

Plane shifted(const Plane &plane, const QPoint &offset)
{
    Plane moved{plane.width, plane.height};
    for (int y = 0; y < plane.height; ++y) {
        for (int x = 0; x < plane.width; ++x) {
            const QPoint from = QPoint(x, y) - offset;
            if (QRect(0, 0, plane.width, plane.height).contains(from))
                moved.at(x, y) = plane.at(from.x(), from.y());
        }
    }
    return moved;
}

/// The mean difference of two planes where the expected one is not black.
double meanDifference(const Plane &seen, const Plane &expected)
{
    constexpr double faintest = 1.0 / 255;
    double sum = 0;
    int count = 0;
    for (std::size_t i = 0; i < expected.values.size(); ++i) {
        if (expected.values[i] >= faintest) {
            sum += std::abs(seen.values[i] - expected.values[i]);
            ++count;
        }
    }
    return sum / count;
}

/// The light of a whole plane as a share of the expected light.
double light(const Plane &seen, const Plane &expected)
{
    const auto sum = [](const Plane &plane) {
        return std::accumulate(plane.values.begin(), plane.values.end(), 0.0);
    };
    return sum(seen) / sum(expected);
}

/// The light of a shadow beside the letters that lie on it.
Plane beside(const Plane &letters, Plane shadow)
{
    for (std::size_t i = 0; i < shadow.values.size(); ++i)
        shadow.values[i] *= 1 - letters.values[i];
    return shadow;
}

constexpr CanvasFrame frame{100, 300, 1720, 480};

TextElementProperties words(const RGBAColor &color)
{
    TextElementProperties text = plainText(QStringLiteral("Sing with joy\nunto the Lord"));
    text.fontSize = 160;
    text.textColor = color;
    return text;
}

const RGBAColor green{0, 1, 0, 1};
const RGBAColor red{1, 0, 0, 1};

constexpr QSize screen(480, 270);
constexpr double scale = 0.25;
constexpr double twoPercent = 0.02;

} // namespace

/// Compares with what the definitions give in double arithmetic.
class TestRenderingReferences : public GuiTest
{
    Q_OBJECT

private slots:
    void aShadowIsTheGaussianOfTheLettersAtHalfItsRadius_data()
    {
        QTest::addColumn<double>("radius");
        QTest::addColumn<QPoint>("offset");
        QTest::newRow("hard") << 0.0 << QPoint(0, 0);
        QTest::newRow("hard, moved") << 0.0 << QPoint(8, -6);
        for (const double radius : {12.0, 18.0, 40.0, 80.0, 160.0}) {
            QTest::addRow("radius %g", radius) << radius << QPoint(0, 0);
            QTest::addRow("radius %g, moved", radius) << radius << QPoint(-5, 9);
        }
    }

    /// The letters are green and their shadow is red, so that the red channel is the shadow where
    /// there are no letters.
    void aShadowIsTheGaussianOfTheLettersAtHalfItsRadius()
    {
        QFETCH(double, radius);
        QFETCH(QPoint, offset);
        TextElementProperties text = words(green);
        const Plane letters = planeOf(rendered({.slide = textSlide(text, frame)}, screen), qGreen);
        text.shadow = TextShadow{red, radius, offset.x() / scale, offset.y() / scale};
        const QImage image = rendered({.slide = textSlide(text, frame)}, screen);
        const double sigma = radius / 2 * scale;
        const Plane shadow = shifted(sigma > 0 ? gaussian(letters, sigma) : letters, offset);
        const Plane expected = beside(letters, shadow);
        const Plane seen = planeOf(image, qRed);
        QVERIFY(meanDifference(seen, expected) <= twoPercent);
        QVERIFY(std::abs(light(seen, expected) - 1) <= 0.05);
    }

    void anOutlineIsTheGaussianOfTheLettersAtHalfItsWidth()
    {
        TextElementProperties text = words(green);
        const Plane letters = planeOf(rendered({.slide = textSlide(text, frame)}, screen), qGreen);
        text.outline = TextOutline{red, 24};
        const QImage image = rendered({.slide = textSlide(text, frame)}, screen);
        const Plane expected = beside(letters, gaussian(letters, 12 * scale));
        const Plane seen = planeOf(image, qRed);
        QVERIFY(meanDifference(seen, expected) <= twoPercent);
        QVERIFY(std::abs(light(seen, expected) - 1) <= 0.05);
    }

    void aBackgroundIsBlurredByTheGaussianOfItsAmountAndFadesAtItsEdges_data()
    {
        QTest::addColumn<double>("amount");
        for (const double amount : {4.0, 12.0, 20.0, 40.0, 120.0})
            QTest::addRow("amount %g", amount) << amount;
    }

    void aBackgroundIsBlurredByTheGaussianOfItsAmountAndFadesAtItsEdges()
    {
        QFETCH(double, amount);
        const QImage original = quarters(screen);
        SlideBackground background = solidBackground({0, 0, 0, 1});
        background.kind = SlideBackgroundKind::image;
        background.image = mediaOf(encoded(original, "PNG"));
        background.blurAmount = amount;
        // Over black, what fades away is dark.
        QImage image(screen, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        paintAnew({.slide = slideWith(designOver(background))}, painter, QRectF(QPointF(), screen));
        painter.end();
        for (const Channel channel : std::initializer_list<Channel>{qRed, qGreen, qBlue}) {
            const Plane expected = gaussian(planeOf(original, channel), amount * scale);
            QVERIFY(meanDifference(planeOf(image, channel), expected) <= twoPercent);
        }
    }

    void dimmingMultipliesEveryColourByWhatIsLeft_data()
    {
        QTest::addColumn<double>("dim");
        for (const double dim : {0.0, 0.18, 0.48, 0.5, 0.93, 1.0})
            QTest::addRow("%g", dim) << dim;
    }

    void dimmingMultipliesEveryColourByWhatIsLeft()
    {
        QFETCH(double, dim);
        const RGBAColor start{0.1, 0.5, 0.9, 1};
        const RGBAColor end{1, 0.2, 0, 1};
        SlideBackground background = solidBackground({0, 0, 0, 1});
        background.kind = SlideBackgroundKind::gradient;
        background.gradient = GradientBackground{start, end, GradientDirection::horizontal};
        background.dimAmount = dim;
        const QImage image = rendered({.slide = slideWith(designOver(background))}, screen);
        for (int x = 0; x < screen.width(); ++x) {
            const double t = (x + 0.5) / screen.width();
            const auto expected = [&](double from, double to) {
                return 255 * (from + t * (to - from)) * (1 - dim);
            };
            const QRgb pixel = image.pixel(x, 100);
            QVERIFY(std::abs(qRed(pixel) - expected(start.red, end.red)) <= 2);
            QVERIFY(std::abs(qGreen(pixel) - expected(start.green, end.green)) <= 2);
            QVERIFY(std::abs(qBlue(pixel) - expected(start.blue, end.blue)) <= 2);
        }
    }
};

QUENARA_GUI_TEST(TestRenderingReferences)

} // namespace tst_rendering_references

#include "tst_rendering_references.moc"
