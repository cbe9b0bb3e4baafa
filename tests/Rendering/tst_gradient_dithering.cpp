#include "GradientFill.h"
#include "GuiTestSupport.h"
#include "Images.h"
#include "SlideBackgroundRenderView.h"
#include "SlideRendererView.h"

#include <array>
#include <cmath>
#include <vector>

using namespace quenara;
using namespace quenara::test;

namespace tst_gradient_dithering {

namespace {

constexpr QSize screen(1920, 1080);
constexpr QSize small(384, 216); // where every pixel is looked at
constexpr int window = 16; // pixels each way over which colours are averaged

using Color = std::array<double, 3>; // red, green, blue; 0 to 255

/// A gradient, how dark it is made and the black that it lies on.
struct Case
{
    const char *name;
    RGBAColor start;
    RGBAColor end;
    double dim = 0;
};

// As dark and as close together as in the templates, where bands are seen best.
const std::array cases{
    Case{.name = "dark", .start = {0.02, 0.03, 0.05, 1}, .end = {0.09, 0.06, 0.14, 1}},
    Case{.name = "bright", .start = {0.1, 0.2, 0.3, 1}, .end = {0.9, 0.6, 0.4, 1}},
    Case{.name = "darkened", .start = {0.2, 0.25, 0.4, 1}, .end = {0.05, 0.1, 0.2, 1}, .dim = 0.35},
    Case{.name = "translucent", .start = {0.2, 0.4, 0.6, 0.2}, .end = {0.3, 0.1, 0.5, 0.7}},
};

SlideBackground background(const Case &kind, GradientDirection direction)
{
    SlideBackground background = solidBackground({0, 0, 0, 1});
    background.kind = SlideBackgroundKind::gradient;
    background.gradient = GradientBackground{kind.start, kind.end, direction};
    background.dimAmount = kind.dim;
    return background;
}

/// On black, as on a display.
QImage imageOf(const SlideBackground &background, const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    paintAnew({.slide = slideWith(designOver(background))}, painter, image.rect());
    return image;
}

double progress(GradientDirection direction, double x, double y)
{
    const double width = small.width();
    const double height = small.height();
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
    const double endRadius = 760 * width / screen.width();
    return std::min(1.0, std::hypot(x - width / 2, y - height / 2) / endRadius);
}

/// The exact colour of a pixel over black.
Color exact(const Case &kind, GradientDirection direction, int x, int y)
{
    const double t = progress(direction, x + 0.5, y + 0.5);
    const auto mixed = [&](double start, double end) {
        const double value = start * kind.start.alpha * (1 - t) + end * kind.end.alpha * t;
        return 255 * value * (1 - kind.dim);
    };
    return {mixed(kind.start.red, kind.end.red), mixed(kind.start.green, kind.end.green),
            mixed(kind.start.blue, kind.end.blue)};
}

/// What an image shows less the exact colours, summed from the top left corner to each pixel, by
/// channel. One row and one column more than the image.
class Sums
{
public:
    Sums(const QImage &image, const Case &kind, GradientDirection direction)
        : m_width(image.width() + 1),
          m_sums(std::size_t(m_width) * (std::size_t(image.height()) + 1))
    {
        for (int y = 0; y < image.height(); ++y) {
            const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
            Color sum{};
            for (int x = 0; x < image.width(); ++x) {
                const Color right = exact(kind, direction, x, y);
                const Color shown{double(qRed(row[x])), double(qGreen(row[x])),
                                  double(qBlue(row[x]))};
                for (std::size_t i = 0; i < sum.size(); ++i) {
                    const double error = shown.at(i) - right.at(i);
                    m_largest = std::max(m_largest, std::abs(error));
                    sum.at(i) += error;
                    at(x + 1, y + 1).at(i) = at(x + 1, y).at(i) + sum.at(i);
                }
            }
        }
    }

    /// The largest error of a channel of one pixel.
    double largest() const { return m_largest; }

    /// The largest mean error of a channel over a square of that side, wherever it lies.
    double largestMean(int side)
    {
        double largest = 0;
        for (int y = side; y < int(m_sums.size()) / m_width; ++y) {
            for (int x = side; x < m_width; ++x) {
                for (std::size_t i = 0; i < Color().size(); ++i) {
                    const double sum = at(x, y).at(i) - at(x - side, y).at(i)
                        - at(x, y - side).at(i) + at(x - side, y - side).at(i);
                    largest = std::max(largest, std::abs(sum) / (side * side));
                }
            }
        }
        return largest;
    }

private:
    Color &at(int x, int y)
    {
        return m_sums[std::size_t(y) * std::size_t(m_width) + std::size_t(x)];
    }

    int m_width;
    std::vector<Color> m_sums;
    double m_largest = 0;
};

/// How many pixels of a row are of the colour of the pixel in the middle of all pixels, sorted by
/// that.
int medianRun(const QImage &image)
{
    std::vector<qint64> pixels(std::size_t(image.width()) + 1); // by the length of their run
    for (int y = 0; y < image.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0, first = 0; x < image.width(); ++x) {
            if (x + 1 == image.width() || row[x + 1] != row[x]) {
                const int run = x + 1 - first;
                pixels.at(std::size_t(run)) += run;
                first = x + 1;
            }
        }
    }
    const qint64 half = qint64(image.width()) * image.height() / 2;
    int run = 0;
    for (qint64 below = 0; below < half; ++run)
        below += pixels.at(std::size_t(run));
    return run - 1;
}

} // namespace

/// What lies between two colours that a screen can show is shown as a fixed pattern of both.
class TestGradientDithering : public GuiTest
{
    Q_OBJECT

private slots:
    void gradientsAreExactOnAverage_data()
    {
        QTest::addColumn<Case>("kind");
        QTest::addColumn<GradientDirection>("direction");
        for (const Case &kind : cases) {
            for (const GradientDirection direction : allCases<GradientDirection>()) {
                QTest::addRow("%s, %s", kind.name, qPrintable(rawValue(direction)))
                    << kind << direction;
            }
        }
    }

    void gradientsAreExactOnAverage()
    {
        QFETCH(Case, kind);
        QFETCH(GradientDirection, direction);
        Sums errors(imageOf(background(kind, direction), small), kind, direction);
        QVERIFY2(errors.largest() <= 1, qPrintable(QString::number(errors.largest())));
        const double mean = errors.largestMean(window);
        QVERIFY2(mean <= 0.25, qPrintable(QString::number(mean)));
    }

    void gradientsShowNoBandsOfOneColour_data() { gradientsAreExactOnAverage_data(); }

    void gradientsShowNoBandsOfOneColour()
    {
        QFETCH(Case, kind);
        QFETCH(GradientDirection, direction);
        const int run = medianRun(imageOf(background(kind, direction), screen));
        QVERIFY2(run <= 3, qPrintable(QString::number(run)));
    }

    void aColourThatCanBeShownIsShownAsItIs_data()
    {
        QTest::addColumn<GradientDirection>("direction");
        for (const GradientDirection direction : allCases<GradientDirection>())
            QTest::newRow(qPrintable(rawValue(direction))) << direction;
    }

    void aColourThatCanBeShownIsShownAsItIs()
    {
        QFETCH(GradientDirection, direction);
        for (int shade = 0; shade < 256; ++shade) {
            const QColor color(shade, 255 - shade, shade / 2);
            QImage image(40, 40, QImage::Format_RGB32);
            QPainter painter(&image);
            GradientFill{direction, color, color, 10}.paint(painter, image.rect());
            painter.end();
            QImage expected(image.size(), image.format());
            expected.fill(color);
            QCOMPARE(image, expected);
        }
    }

    void aSlideLooksTheSameWhereverItStands()
    {
        const SlideBackground kind = background(cases.front(), GradientDirection::radialHint);
        const QSize size(480, 270);
        const QImage expected = imageOf(kind, size);
        QImage image(size + QSize(7, 5), QImage::Format_RGB32);
        QPainter painter(&image);
        paintAnew({.slide = slideWith(designOver(kind))}, painter, {{7, 5}, size});
        painter.end();
        QCOMPARE(image.copy({{7, 5}, size}), expected);
    }

    void noChannelOfATranslucentGradientIsMoreThanItsAlpha()
    {
        QImage image(256, 256, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        GradientFill{GradientDirection::diagonal, QColor(255, 255, 255, 0),
                     QColor(255, 255, 255, 200), 0}
            .paint(painter, image.rect());
        painter.end();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QRgb pixel = reinterpret_cast<const QRgb *>(image.constScanLine(y))[x];
                QVERIFY(qRed(pixel) <= qAlpha(pixel) && qGreen(pixel) <= qAlpha(pixel)
                        && qBlue(pixel) <= qAlpha(pixel));
            }
        }
    }
};

QUENARA_GUI_TEST(TestGradientDithering)

} // namespace tst_gradient_dithering

#include "tst_gradient_dithering.moc"
