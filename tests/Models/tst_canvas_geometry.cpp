#include "CanvasGeometry.h"
#include "TestMain.h"

#include <QTest>

using namespace quenara;

namespace tst_canvas_geometry {

class TestCanvasGeometry : public QObject
{
    Q_OBJECT

private slots:
    void theStandardCanvasIs1920By1080()
    {
        QCOMPARE(CanvasSize().width, 1920.0);
        QCOMPARE(CanvasSize().height, 1080.0);
    }

    void theMiddleOfAFrameLiesHalfItsSizeFromItsOrigin()
    {
        constexpr CanvasFrame frame{100, -40, 61, 30};
        QCOMPARE(frame.midX(), 130.5);
        QCOMPARE(frame.midY(), -25.0);
    }

    void anOffsetMovesAFrameAndKeepsItsSize()
    {
        constexpr CanvasFrame frame{100, 200, 10, 20};
        QCOMPARE(frame.offsetBy(-150, 42.5), (CanvasFrame{-50, 242.5, 10, 20}));
    }

    void resizingKeepsTheOriginAndTheSmallestSize_data()
    {
        QTest::addColumn<CanvasFrame>("frame");
        QTest::addColumn<double>("dw");
        QTest::addColumn<double>("dh");
        QTest::addColumn<CanvasFrame>("expected");

        const CanvasFrame frame{7, 9, 100, 60};
        QTest::newRow("both sides stop at the smallest size")
            << frame << -50.0 << -50.0 << CanvasFrame{7, 9, 80, 48};
        QTest::newRow("a frame grows") << frame << 50.0 << 4.5 << CanvasFrame{7, 9, 150, 64.5};
        QTest::newRow("just the smallest size")
            << frame << -20.0 << -12.0 << CanvasFrame{7, 9, 80, 48};
        QTest::newRow("one side alone stops")
            << frame << -21.0 << -11.0 << CanvasFrame{7, 9, 80, 49};
        QTest::newRow("a smaller frame becomes the smallest size by no change at all")
            << CanvasFrame{0, 0, 4, 4} << 0.0 << 0.0 << CanvasFrame{0, 0, 80, 48};
    }

    void resizingKeepsTheOriginAndTheSmallestSize()
    {
        QFETCH(CanvasFrame, frame);
        QFETCH(double, dw);
        QFETCH(double, dh);
        QTEST(frame.resizedBy(dw, dh), "expected");
    }
};

QUENARA_TEST(TestCanvasGeometry)

} // namespace tst_canvas_geometry

#include "tst_canvas_geometry.moc"
