#include "DevicePixels.h"
#include "GuiTestSupport.h"
#include "PaintingWorkarounds.h"
#include "RoundedShapes.h"

#include <limits>

using namespace quenara;
using namespace quenara::test;

namespace tst_device_pixels {

namespace {

constexpr QSize size(400, 300);
constexpr QRectF box(20, 10, 350, 270);
constexpr int rounding = 2; // of 255; Qt adds up its steps along a turned row from where it begins

QImage painted(const QTransform &transform, double ratio,
               const std::function<void(QPainter &)> &paint)
{
    QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::darkGreen);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setTransform(transform);
    paint(painter);
    return image;
}

void addTransforms()
{
    QTest::addColumn<QTransform>("transform");
    QTest::addColumn<double>("ratio");
    const auto row = [](const char *name, const QTransform &transform, double ratio) {
        QTest::newRow(name) << transform << ratio;
    };
    row("upright", {}, 1);
    row("between pixels", QTransform::fromTranslate(0.3, -7.6), 1);
    row("smaller", QTransform::fromScale(0.37, 0.41), 1);
    row("turned", QTransform().translate(40, -30).rotate(8), 1);
    row("upside down", QTransform().translate(400, 300).rotate(180), 1);
    row("partly beyond the edge", QTransform::fromTranslate(-200, 150), 1);
    row("at two pixels a point", QTransform::fromTranslate(3.2, 0), 2);
    row("at one and a half", QTransform::fromTranslate(3.2, 0), 1.5);
}

} // namespace

class TestDevicePixels : public GuiTest
{
    Q_OBJECT

private slots:
    void anEdgeThatMissesAPixelByItsLastBitTouchesNoMore_data()
    {
        QTest::addColumn<QRectF>("rect");
        QTest::addColumn<QRectF>("expected");
        const double beyond = 200 + 1e-12;
        QTest::newRow("whole") << QRectF(10, 20, 100, 50) << QRectF(10, 20, 100, 50);
        QTest::newRow("a bit too large") << QRectF(10, 20, beyond, 50) << QRectF(10, 20, 200, 50);
        QTest::newRow("a bit too far left")
            << QRectF(10 - 1e-12, 20, 100, 50) << QRectF(10, 20, 100, 50);
        QTest::newRow("a fraction") << QRectF(10.9, 20, 100, 50) << QRectF(10, 20, 101, 50);
        QTest::newRow("a small fraction") << QRectF(10, 20, 100.01, 50) << QRectF(10, 20, 101, 50);
    }

    void anEdgeThatMissesAPixelByItsLastBitTouchesNoMore()
    {
        QFETCH(QRectF, rect);
        QImage image(size, QImage::Format_RGB32);
        const QPainter painter(&image);
        QTEST(touchedPixels(painter, rect), "expected");
    }

    void aSizeIsGivenInWholePixelsHoweverLargeItIs_data()
    {
        constexpr int largest = std::numeric_limits<int>::max();
        QTest::addColumn<QSizeF>("given");
        QTest::addColumn<QSize>("expected");
        const auto row = [](const char *name, const QSizeF &given, const QSize &expected) {
            QTest::newRow(name) << given << expected;
        };
        row("rounded", {2.4, 2.5}, {2, 3});
        row("the largest number", {1e300, 2147483648.0}, {largest, largest});
        row("endless", {qInf(), 1}, {largest, 1});
        row("negative", {-1e300, -0.6}, {0, 0});
        row("no number", {qQNaN(), 7}, {0, 7});
    }

    void aSizeIsGivenInWholePixelsHoweverLargeItIs()
    {
        QFETCH(QSizeF, given);
        QTEST(wholePixels(given), "expected");
    }

    void aRectangleIsCutToWhatAScreenMayShow_data()
    {
        QTest::addColumn<QRectF>("given");
        QTest::addColumn<QRect>("expected");
        const auto row = [](const char *name, const QRectF &given, const QRect &expected) {
            QTest::newRow(name) << given << expected;
        };
        row("between pixels", {0.5, -0.5, 1, 1}, {0, -1, 2, 2});
        row("as wide as a caret", {3, 4, 1, 20}, {3, 4, 1, 20});
        row("huge", {-1e300, -1e18, 2e300, 2e18}, {-20000, -20000, 40000, 40000});
        row("out of reach", {1e9, 0, 10, 10}, {});
        row("no number", {qQNaN(), 0, 10, 10}, {});
    }

    void aRectangleIsCutToWhatAScreenMayShow()
    {
        QFETCH(QRectF, given);
        QTEST(reachableRect(given), "expected");
    }

    void aShapeFilledInBandsLooksAsIfFilledAtOnce_data() { addTransforms(); }

    void aShapeFilledInBandsLooksAsIfFilledAtOnce()
    {
        QFETCH(QTransform, transform);
        QFETCH(double, ratio);
        const QPainterPath path = continuousRoundedRect(box, 40);
        const QColor color(255, 200, 100, 160);
        QCOMPARE(
            painted(transform, ratio,
                    [&](QPainter &painter) { fillInBands(painter, path, color); }),
            painted(transform, ratio, [&](QPainter &painter) { painter.fillPath(path, color); }));
    }

    void aRoundedRectLooksAsItsPathFilledAtOnce_data() { addTransforms(); }

    void aRoundedRectLooksAsItsPathFilledAtOnce()
    {
        QFETCH(QTransform, transform);
        QFETCH(double, ratio);
        for (const double radius : {0.0, 12.0, 60.0, 135.0}) {
            for (const QColor &color : {QColor(255, 200, 100), QColor(255, 200, 100, 160)}) {
                const QImage image = painted(transform, ratio, [&](QPainter &painter) {
                    fillRoundedRect(painter, box, radius, color);
                });
                QVERIFY(largestDifference(
                            image,
                            painted(transform, ratio,
                                    [&](QPainter &painter) {
                                        painter.fillPath(continuousRoundedRect(box, radius), color);
                                    }))
                        <= 1);
            }
        }
    }

    void anImageDrawnInBandsLooksAsIfDrawnAtOnce_data() { addTransforms(); }

    void anImageDrawnInBandsLooksAsIfDrawnAtOnce()
    {
        QFETCH(QTransform, transform);
        QFETCH(double, ratio);
        QImage image(90, 70, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.fillPath(continuousRoundedRect(image.rect(), 20), QGradient(QGradient::WarmFlame));
        painter.end();
        const auto draw = [&](QPainter &target) { target.drawImage(box, image); };
        const QImage inBands = painted(transform, ratio, [&](QPainter &target) {
            paintInBands(target, box, 1, [&] { draw(target); });
        });
        QVERIFY(largestDifference(inBands, painted(transform, ratio, draw)) <= rounding);
    }

    void bandsKeepToTheClipAndLeaveThePainterAsItWas()
    {
        const QRect clip(50, 60, 200, 190);
        QTransform after;
        QRectF clipAfter;
        const QImage image = painted(QTransform::fromTranslate(5, 5), 1, [&](QPainter &painter) {
            painter.setClipRect(clip);
            paintInBands(painter, box, 4, [&] { painter.fillRect(box, Qt::red); });
            after = painter.transform();
            clipAfter = painter.clipBoundingRect();
        });
        QCOMPARE(image, painted(QTransform::fromTranslate(5, 5), 1, [&](QPainter &painter) {
                     painter.fillRect(clip, Qt::red);
                 }));
        QCOMPARE(after, QTransform::fromTranslate(5, 5));
        QCOMPARE(clipAfter, QRectF(clip));
    }

    void whatIsOutOfSightIsNotPainted()
    {
        painted({}, 1, [](QPainter &painter) {
            for (const QRectF &away : {QRectF(0, 300, 400, 200), QRectF(10, 10, 0, 0)}) {
                paintInBands(painter, away, 1,
                             [] { QFAIL("painted though there is nothing to be seen"); });
            }
        });
    }
};

QUENARA_GUI_TEST(TestDevicePixels)

} // namespace tst_device_pixels

#include "tst_device_pixels.moc"
