#include "GuiTestSupport.h"
#include "ImageElementRenderView.h"
#include "ImageFill.h"
#include "Images.h"
#include "RenderCaches.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QtMath>

#include <array>
#include <cmath>
#include <functional>
#include <vector>

using namespace quenara;
using namespace quenara::test;

namespace tst_image_sampling {

namespace {

constexpr int side = 520; // of the zone plate, pixels

/// Values of one channel, 0 to 255.
struct Plane
{
    QSize size;
    std::vector<double> values;

    double at(int x, int y) const
    {
        return values[std::size_t(y) * std::size_t(size.width()) + std::size_t(x)];
    }
};

Plane planeOf(const QSize &size, const std::function<double(int x, int y)> &value)
{
    Plane plane{size, {}};
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            plane.values.push_back(value(x, y));
    }
    return plane;
}

Plane planeOf(const QImage &image)
{
    return planeOf(image.size(), [&](int x, int y) { return qGreen(image.pixel(x, y)); });
}

/// Rings around the middle of a square, from no detail there to one line a pixel at the middle of
/// each side. \a radius is half of the side at the middle of a side.
double zonePlate(double radius, double length)
{
    return 127.5 + 127.5 * std::cos(M_PI * radius * radius / length);
}

/// By the distances from the left and the top, in pixels.
QImage imageOf(int width, const std::function<double(double x, double y)> &value)
{
    QImage image(width, width, QImage::Format_RGB32);
    for (int y = 0; y < width; ++y) {
        for (int x = 0; x < width; ++x) {
            const int shade = int(std::round(value(x + 0.5, y + 0.5)));
            image.setPixel(x, y, qRgb(shade, shade, shade));
        }
    }
    return image;
}

double distanceFromMiddle(int width, double x, double y)
{
    return std::hypot(x - width / 2.0, y - width / 2.0);
}

using Kernel = std::function<double(double distance)>;

double lanczos2(double x)
{
    const double angle = M_PI * x;
    if (std::abs(x) >= 2)
        return 0;
    return x == 0 ? 1 : std::sin(angle) * 2 * std::sin(angle / 2) / angle / angle;
}

double catmullRom(double x)
{
    const double d = std::abs(x);
    if (d < 1)
        return 1.5 * d * d * d - 2.5 * d * d + 1;
    return d < 2 ? -0.5 * d * d * d + 2.5 * d * d - 4 * d + 2 : 0;
}

/// What a new pixel takes of the old ones of its line: \a weights of those from \a first on.
struct Taken
{
    int first = 0;
    std::vector<double> weights;
};

/// What each of \a to new pixels takes of \a from old ones, by how much one takes that lies at a
/// distance from its middle, counted in old pixels.
std::vector<Taken> taken(int from, int to, double reach, const Kernel &weight)
{
    const double step = double(from) / to;
    std::vector<Taken> line;
    for (int i = 0; i < to; ++i) {
        const double middle = (i + 0.5) * step;
        const int first = std::max(0, int(std::floor(middle - reach - 1)));
        const int last = std::min(from - 1, int(std::ceil(middle + reach + 1)));
        Taken &pixel = line.emplace_back(Taken{first, {}});
        double sum = 0;
        for (int j = first; j <= last; ++j)
            sum += pixel.weights.emplace_back(weight(j + 0.5 - middle));
        for (double &part : pixel.weights)
            part /= sum;
    }
    return line;
}

/// By a filter as wide as the larger of an old and a new pixel.
std::vector<Taken> filtered(int from, int to, const Kernel &kernel)
{
    const double width = std::max(1.0, double(from) / to);
    return taken(from, to, 2 * width, [&](double distance) { return kernel(distance / width); });
}

/// By a box that has the exact width of a new pixel.
std::vector<Taken> boxed(int from, int to)
{
    const double half = double(from) / to / 2;
    return taken(from, to, half, [&](double distance) {
        return std::max(0.0, std::min(distance + 0.5, half) - std::max(distance - 0.5, -half));
    });
}

/// A square plane that is filtered alike each way.
Plane resized(const Plane &plane, const std::vector<Taken> &line)
{
    const auto count = int(line.size());
    const auto sumOf = [](const Taken &taken, const auto &value) {
        double sum = 0;
        for (std::size_t i = 0; i < taken.weights.size(); ++i)
            sum += taken.weights[i] * value(taken.first + int(i));
        return sum;
    };
    const Plane narrow = planeOf({count, plane.size.height()}, [&](int x, int y) {
        return sumOf(line[std::size_t(x)], [&](int i) { return plane.at(i, y); });
    });
    return planeOf({count, count}, [&](int x, int y) {
        return sumOf(line[std::size_t(y)], [&](int i) { return narrow.at(x, i); });
    });
}

/// How far a place of a reduced zone plate lies from its middle, 1 being where one line takes a
/// new pixel: the limit of what can be shown.
double fineness(const Plane &plane, int x, int y)
{
    const double width = plane.size.width();
    const double ratio = side / width;
    const double radius = std::hypot(x + 0.5 - width / 2, y + 0.5 - width / 2) * ratio;
    return radius / (side / 2.0) * ratio;
}

/// The root of the mean square of what is left of lines too fine to be shown.
double contrastBeyondTheLimit(const Plane &plane)
{
    double sum = 0;
    int count = 0;
    for (int y = 0; y < plane.size.height(); ++y) {
        for (int x = 0; x < plane.size.width(); ++x) {
            if (fineness(plane, x, y) > 1) {
                sum += std::pow(plane.at(x, y) - 127.5, 2);
                ++count;
            }
        }
    }
    return std::sqrt(sum / count);
}

/// Of lines of one fineness: how far they are from grey, as a share of the original's.
double modulation(const Plane &lines)
{
    double sum = 0;
    for (const double value : lines.values)
        sum += std::pow((value - 127.5) / 127.5, 2);
    return std::sqrt(2 * sum / double(lines.values.size()));
}

Plane shown(const QByteArray &image, const QSize &area)
{
    const DecodedImage decoded = ZelvoImageLoader::image(mediaOf(image), area);
    return planeOf(filled(decoded, {.area = area}).image);
}

double rootMeanSquare(const Plane &plane, const Plane &other)
{
    double sum = 0;
    for (std::size_t i = 0; i < plane.values.size(); ++i)
        sum += std::pow(plane.values[i] - other.values[i], 2);
    return std::sqrt(sum / double(plane.values.size()));
}

} // namespace

class TestImageSampling : public GuiTest
{
    Q_OBJECT

private slots:
    void aReducedImageShowsNoPatternsAndStaysSharp_data()
    {
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<double>("ratio");
        for (const char *format : {"PNG", "JPG"}) {
            for (const double ratio : {1.3, 1.95, 2.6, 3.9, 4.0})
                QTest::addRow("%s, %g to 1", format, ratio) << QByteArray(format) << ratio;
        }
    }

    void aReducedImageShowsNoPatternsAndStaysSharp()
    {
        QFETCH(QByteArray, format);
        QFETCH(double, ratio);
        const int width = qRound(side / ratio);
        const QImage rings = imageOf(side, [](double x, double y) {
            return zonePlate(distanceFromMiddle(side, x, y), side);
        });
        constexpr double rounding = 0.1;
        const Plane box = resized(planeOf(rings), boxed(side, width));
        QVERIFY(contrastBeyondTheLimit(shown(encoded(rings, format), {width, width}))
                <= contrastBeyondTheLimit(box) + rounding);

        const double period = 4.0 * side / width; // half as fine as the limit
        const QImage lines = imageOf(side, [&](double x, double /*y*/) {
            return 127.5 + 127.5 * std::cos(2 * M_PI * x / period);
        });
        const Plane sharp = resized(planeOf(lines), filtered(side, width, lanczos2));
        QVERIFY(modulation(shown(encoded(lines, format), {width, width}))
                >= 0.9 * modulation(sharp));
    }

    void anEnlargedImageIsAsCloseToWhatItShowsAsAnyUsualOne_data()
    {
        QTest::addColumn<double>("ratio");
        for (const double ratio : {1.25, 2.0, 4.0, 7.5})
            QTest::addRow("1 to %g", ratio) << ratio;
    }

    void anEnlargedImageIsAsCloseToWhatItShowsAsAnyUsualOne()
    {
        QFETCH(double, ratio);
        constexpr int small = 160;
        // Lines of at least four old pixels, whose true course between these is known.
        const auto value = [](double x, double y) {
            return zonePlate(distanceFromMiddle(small, x, y), 2 * small);
        };
        const QImage image = imageOf(small, value);
        const int width = qRound(small * ratio);
        const Plane exact = planeOf({width, width}, [&](int x, int y) {
            return value((x + 0.5) / ratio, (y + 0.5) / ratio);
        });
        const QImage smooth =
            image.scaled(width, width, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        const Plane bicubic = resized(planeOf(image), filtered(small, width, catmullRom));
        const double seen = rootMeanSquare(shown(encoded(image, "PNG"), {width, width}), exact);
        QVERIFY(seen <= rootMeanSquare(planeOf(smooth), exact));
        QVERIFY(seen <= rootMeanSquare(bicubic, exact));
    }

    void aDrawingIsAsSharpAsTheAreaThatItFills_data()
    {
        QTest::addColumn<QSize>("area");
        QTest::addColumn<QPointF>("middle");
        QTest::addColumn<double>("scale");
        QTest::newRow("larger") << QSize(1000, 600) << QPointF(500, 300) << 10.0;
        QTest::newRow("much larger") << QSize(2000, 1200) << QPointF(1000, 600) << 20.0;
        QTest::newRow("smaller") << QSize(50, 30) << QPointF(25, 15) << 0.5;
        QTest::newRow("higher than the drawing") << QSize(600, 600) << QPointF(300, 300) << 10.0;
        QTest::newRow("wider than the drawing") << QSize(1500, 301) << QPointF(750, 150) << 15.0;
    }

    void aDrawingIsAsSharpAsTheAreaThatItFills()
    {
        QFETCH(QSize, area);
        QFETCH(QPointF, middle);
        QFETCH(double, scale);
        const Plane seen = shown(
            "<svg xmlns='http://www.w3.org/2000/svg' width='100' height='60'>"
            "<rect width='100' height='60' fill='#fff'/><circle cx='50' cy='30' r='20'/></svg>",
            area);
        QImage expected(area, QImage::Format_RGB32);
        expected.fill(Qt::white);
        QPainter painter(&expected);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::black);
        painter.drawEllipse(middle, 20 * scale, 20 * scale);
        painter.end();
        QCOMPARE(seen.size, area);
        QVERIFY(rootMeanSquare(seen, planeOf(expected)) < 1);
    }

    void aDrawingThatTakesLongToPaintIsPaintedSmallerAndEnlarged()
    {
        QByteArray circles;
        for (int i = 0; i < 2000; ++i)
            circles += "<circle cx='200' cy='200' r='190' fill='#123' fill-opacity='0.01'/>";
        const QByteArray drawing =
            "<svg xmlns='http://www.w3.org/2000/svg' width='400' height='400'>" + circles
            + "</svg>";
        const QSize area(4000, 4000);
        const DecodedImage decoded = ZelvoImageLoader::image(mediaOf(drawing), area);
        QVERIFY(decoded.image.width() >= 400);
        QVERIFY(decoded.image.width() < 2000);
        QVERIFY(decoded.isDecodedFor(area));
        QCOMPARE(filled(decoded, {.area = area}).image.size(), area);
    }

    void oneColourStaysThatColourAtEverySize()
    {
        QImage image(37, 23, QImage::Format_ARGB32_Premultiplied);
        for (const QColor &color :
             {QColor(1, 2, 3), QColor(254, 127, 128), QColor(90, 200, 30, 77)}) {
            image.fill(color);
            const QRgb pixel = image.pixel(0, 0);
            for (const QSize &area : {QSize(5, 7), QSize(36, 23), QSize(38, 40), QSize(300, 11)}) {
                const FilledImage result = filled({image, image.size()}, {.area = area});
                for (int y = 0; y < area.height(); ++y) {
                    for (int x = 0; x < area.width(); ++x)
                        QCOMPARE(result.image.pixel(x, y), pixel);
                }
            }
        }
    }

    void whatIsShownPixelByPixelIsCopied()
    {
        const QImage image = imageOf(64, [](double x, double y) { return 3 * x + y; });
        QCOMPARE(filled({image, image.size()}, {.area = {64, 64}}).image, image);
        QCOMPARE(filled({image, image.size()}, {.area = {64, 31}}).image,
                 image.copy(0, 17, 64, 31));
    }

    void noColourExceedsItsAlphaBesideEdges()
    {
        QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.fillRect(10, 10, 20, 20, Qt::white);
        painter.end();
        for (const int width : {15, 33, 47, 200}) {
            const QImage result = filled({image, image.size()}, {.area = {width, width}}).image;
            for (int y = 0; y < width; ++y) {
                for (int x = 0; x < width; ++x) {
                    const QRgb pixel = reinterpret_cast<const QRgb *>(result.constScanLine(y))[x];
                    QVERIFY(qGreen(pixel) <= qAlpha(pixel));
                }
            }
        }
    }

    void aBlurTakesInWhatTheImageHasAroundTheArea()
    {
        const QImage image = imageOf(300, [](double x, double y) { return (x + 2 * y) / 4; });
        const FilledImage blurred = filled({image, image.size()}, {.area = {100, 50}, .blur = 3});
        QCOMPARE(blurred.place, QRectF(0, -9, 100, 68)); // at the sides there is no more of it
        const FilledImage sharp = filled({image, image.size()}, {.area = {100, 50}});
        QCOMPARE(sharp.place, QRectF(0, 0, 100, 50));
        // What rises evenly stays as it is, and is whole above and below.
        for (const int y : {0, 20, 49}) {
            const QRgb pixel = blurred.image.pixel(50, y + 9);
            QCOMPARE(qAlpha(pixel), 255);
            QVERIFY(std::abs(qGreen(pixel) - qGreen(sharp.image.pixel(50, y))) <= 1);
        }
        QVERIFY(qAlpha(blurred.image.pixel(0, 34)) < 200);
    }

    void aPartOfAnAreaIsFilledAsInTheWhole()
    {
        const QImage image = imageOf(
            300, [](double x, double y) { return zonePlate(distanceFromMiddle(300, x, y), 900); });
        const QSize area(700, 500);
        const QImage whole = filled({image, image.size()}, {.area = area}).image;
        for (const QRect part :
             {QRect(0, 0, 50, 60), QRect(333, 217, 100, 1), QRect(690, 490, 10, 10)}) {
            const FilledImage result = filled({image, image.size()}, {.area = area, .part = part});
            QCOMPARE(result.place, QRectF(part));
            QVERIFY(largestDifference(result.image, whole.copy(part)) <= 1);
        }
    }

    void aDrawingThatDoesNotFillItsAreaExactlyIsStillCopied()
    {
        for (const QSize &area : {QSize(1001, 600), QSize(1000, 601), QSize(997, 333)}) {
            const DecodedImage decoded = ZelvoImageLoader::image(
                mediaOf("<svg xmlns='http://www.w3.org/2000/svg' width='100' height='60'>"
                        "<path d='M0 0L100 60' stroke='red'/></svg>"),
                area);
            const QSize rest = decoded.image.size() - area;
            const QPoint corner(qRound(rest.width() / 2.0), qRound(rest.height() / 2.0));
            QCOMPARE(filled(decoded, {.area = area}).image,
                     decoded.image.copy(QRect(corner, area)));
        }
    }

    void ofALayerLargerThanItsSlideOnlyWhatIsSeenIsResampled()
    {
        const QImage image = imageOf(300, [](double x, double y) { return (x + y) / 3; });
        SlideElement layer = rectangleLayer(QStringLiteral("image"), {}, {}, 1);
        layer.kind = SlideElementKind::image;
        layer.image = mediaOf(encoded(image, "PNG"));
        SlideDesign design = designOver(solidBackground({0, 0, 0, 1}));
        for (const CanvasFrame &frame :
             {CanvasFrame{-3000, -2000, 9000, 6000}, CanvasFrame{-1e8, -1e8, 2.2e8, 2.2e8},
              CanvasFrame{-1e300, 500, 1e300, 10}, CanvasFrame{5000, 5000, 1e9, 1e9}}) {
            layer.frame = frame;
            design.elements = {layer};
            RenderCaches caches;
            rendered({.slide = slideWith(design)}, {480, 270}, 1, caches);
            constexpr auto imageAndScreen = qsizetype(300) * 300 + qsizetype(480) * 270;
            QVERIFY(caches.images.byteCount() < 8 * imageAndScreen);
        }
    }

    void aLayerThatReachesBeyondItsSlideIsPaintedAsIfAllOfItWereSeen()
    {
        const QImage image = imageOf(
            90, [](double x, double y) { return zonePlate(distanceFromMiddle(90, x, y), 270); });
        const SlideMedia media = mediaOf(encoded(image, "PNG"));
        const QRectF slide(0, 0, 64, 40);
        QRandomGenerator random(1);
        RenderCaches caches;
        for (int i = 0; i < 300; ++i) {
            const QRectF box(random.bounded(400.0) - 390, random.bounded(400.0) - 390,
                             20 + random.bounded(800.0), 20 + random.bounded(800.0));
            const auto painted = [&](const QRectF &seen) {
                QImage target(slide.size().toSize(), QImage::Format_RGB32);
                target.fill(Qt::black);
                QPainter painter(&target);
                ImageElementRenderView{media, seen}.paint(painter, box, caches);
                return target;
            };
            QVERIFY(largestDifference(painted(slide), painted({})) <= 1);
        }
    }

    void anImageThatIsDraggedAcrossTheEdgeIsSeldomMadeAnew_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("most");
        QTest::newRow("smaller than its slide") << QSize(300, 200) << 1;
        QTest::newRow("larger than its slide") << QSize(700, 400) << 1;
        QTest::newRow("far larger than its slide")
            << QSize(4000, 3000) << 9; // at the edges of tiles
    }

    void anImageThatIsDraggedAcrossTheEdgeIsSeldomMadeAnew()
    {
        QFETCH(QSize, size);
        QFETCH(int, most);
        const SlideMedia media = solidImage({40, 30}, Qt::red);
        const QRectF slide(0, 0, 480, 270);
        QImage target(slide.size().toSize(), QImage::Format_RGB32);
        RenderCaches caches;
        int made = 0;
        for (int x = -200; x < 0; ++x) {
            const qsizetype before = caches.images.byteCount();
            QPainter painter(&target);
            ImageElementRenderView{media, slide}.paint(painter, QRectF(QPoint(x, -20), size),
                                                       caches);
            made += caches.images.byteCount() > before ? 1 : 0;
        }
        QVERIFY(made >= 1);
        QVERIFY(made <= most);
    }

    void anAreaOfTooManyPixelsIsFilledByFewer_data()
    {
        QTest::addColumn<QSize>("area");
        QTest::newRow("both ways") << QSize(100'000, 50'000);
        QTest::newRow("wide") << QSize(100'000'000, 1);
        QTest::newRow("wide and low") << QSize(134'217'700, 7);
        QTest::newRow("high") << QSize(3, 2'000'000'000);
        QTest::newRow("beyond all measure") << QSize(2'147'483'647, 2'147'483'647);
    }

    void anAreaOfTooManyPixelsIsFilledByFewer()
    {
        QFETCH(QSize, area);
        const QImage image = imageOf(64, [](double x, double /*y*/) { return 2 * x; });
        const FilledImage result = filled({image, image.size()}, {.area = area});
        QVERIFY(!result.image.isNull());
        QVERIFY(result.image.width() <= 32'767 && result.image.height() <= 32'767);
        QVERIFY(qint64(result.image.width()) * result.image.height() < 1.01 * (1U << 24U));
        QCOMPARE(result.place.toRect(), QRect(QPoint(), area));
    }

    void aDrawingOfAnyShapeTakesNoMorePixelsThanAnImageMay_data()
    {
        QTest::addColumn<QByteArray>("size");
        QTest::newRow("wide") << QByteArray("width='100000000' height='1'");
        QTest::newRow("high") << QByteArray("width='1' height='100000'");
        QTest::newRow("large") << QByteArray("width='50000' height='50000'");
    }

    void aDrawingOfAnyShapeTakesNoMorePixelsThanAnImageMay()
    {
        QFETCH(QByteArray, size);
        const DecodedImage decoded = ZelvoImageLoader::image(
            mediaOf("<svg xmlns='http://www.w3.org/2000/svg' " + size + "/>"), {1920, 1080});
        QVERIFY(decoded.image.width() <= 32'767 && decoded.image.height() <= 32'767);
        QVERIFY(decoded.image.sizeInBytes() < 1.01 * 4 * (1U << 24U));
    }
};

QUENARA_GUI_TEST(TestImageSampling)

} // namespace tst_image_sampling

#include "tst_image_sampling.moc"
