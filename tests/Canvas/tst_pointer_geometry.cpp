#include "PointerGeometry.h"
#include "TestMain.h"

#include <QTest>

using namespace quenara;

namespace tst_pointer_geometry {

namespace {

constexpr CanvasSize fullHD{1920, 1080};

SlideElement layer(const QString &id, const CanvasFrame &frame, std::int64_t zIndex = 0)
{
    SlideElement element;
    element.id = id;
    element.frame = frame;
    element.zIndex = zIndex;
    return element;
}

QString idAt(const SlideDesign &design, const QPointF &point)
{
    const SlideElement *found = layerAt(design, point);
    return found ? found->id : QString();
}

} // namespace

class TestPointerGeometry : public QObject
{
    Q_OBJECT

private slots:
    void theSlideIsFittedWithAMargin_data()
    {
        QTest::addColumn<QSizeF>("area");
        QTest::addColumn<CanvasSize>("canvas");
        QTest::addColumn<QRectF>("expected");
        QTest::newRow("1920 by 1080 in 1048 by 1000")
            << QSizeF(1048, 1000) << fullHD << QRectF(24, 218.75, 1000, 562.5);
        QTest::newRow("in an area that is too wide, its height decides")
            << QSizeF(4048, 1128) << fullHD << QRectF(1064, 24, 1920, 1080);
        QTest::newRow("in an area of just its shape, both do")
            << QSizeF(1968, 1128) << fullHD << QRectF(24, 24, 1920, 1080);
        QTest::newRow("upright") << QSizeF(548, 1048) << CanvasSize{500, 1000}
                                 << QRectF(24, 24, 500, 1000);
        QTest::newRow("one point of room")
            << QSizeF(49, 49) << CanvasSize{10, 10} << QRectF(24, 24, 1, 1);
    }

    void theSlideIsFittedWithAMargin()
    {
        QFETCH(QSizeF, area);
        QFETCH(CanvasSize, canvas);
        QFETCH(QRectF, expected);
        QCOMPARE(fittedCanvasRect(area, canvas), expected);
    }

    void theScaleOf1048By1000IsAThousandOf1920()
    {
        QCOMPARE(fittedCanvasRect({1048, 1000}, fullHD).width() / fullHD.width, 1000.0 / 1920);
    }

    void withoutRoomThereIsNoSlide_data()
    {
        QTest::addColumn<QSizeF>("area");
        QTest::addColumn<CanvasSize>("canvas");
        QTest::newRow("no area") << QSizeF(0, 0) << fullHD;
        QTest::newRow("no width") << QSizeF(0, 500) << fullHD;
        QTest::newRow("negative height") << QSizeF(500, -1) << fullHD;
        QTest::newRow("nothing but margins") << QSizeF(48, 48) << fullHD;
        QTest::newRow("less than the margins") << QSizeF(1000, 20) << fullHD;
        QTest::newRow("a canvas without width") << QSizeF(500, 500) << CanvasSize{0, 1080};
        QTest::newRow("a canvas of negative height") << QSizeF(500, 500) << CanvasSize{1920, -1};
    }

    void withoutRoomThereIsNoSlide()
    {
        QFETCH(QSizeF, area);
        QFETCH(CanvasSize, canvas);
        QVERIFY(fittedCanvasRect(area, canvas).isEmpty());
    }

    void theTopmostLayerIsHit_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<QString>("expected");
        QTest::newRow("one alone") << QPointF(50, 50) << QStringLiteral("low");
        QTest::newRow("the higher one, though it comes first in the list")
            << QPointF(150, 150) << QStringLiteral("high");
        QTest::newRow("of equal ones the later in the list")
            << QPointF(450, 450) << QStringLiteral("second");
        QTest::newRow("none") << QPointF(1000, 1000) << QString();
        QTest::newRow("the top left corner") << QPointF(0, 0) << QStringLiteral("low");
        QTest::newRow("not the bottom right corner") << QPointF(500, 500) << QString();
        QTest::newRow("beyond the canvas") << QPointF(-50, -50) << QStringLiteral("outside");
        QTest::newRow("none of negative size") << QPointF(790, 790) << QString();
        QTest::newRow("none without size") << QPointF(700, 700) << QString();
    }

    void theTopmostLayerIsHit()
    {
        QFETCH(QPointF, point);
        QFETCH(QString, expected);
        SlideDesign design;
        design.elements = {layer(QStringLiteral("high"), {100, 100, 100, 100}, 5),
                           layer(QStringLiteral("low"), {0, 0, 200, 200}, -1),
                           layer(QStringLiteral("first"), {400, 400, 100, 100}),
                           layer(QStringLiteral("second"), {400, 400, 100, 100}),
                           layer(QStringLiteral("outside"), {-100, -100, 80, 80}),
                           layer(QStringLiteral("turned"), {800, 800, -50, -50}),
                           layer(QStringLiteral("point"), {700, 700, 0, 0})};
        QCOMPARE(idAt(design, point), expected);
    }

    void hiddenAndLockedLayersAreHitWhereTheyStand()
    {
        SlideElement hidden = layer(QStringLiteral("hidden"), {0, 0, 100, 100});
        hidden.visible = false;
        hidden.locked = true;
        SlideDesign design;
        design.elements = {hidden};
        QCOMPARE(idAt(design, {50, 50}), QStringLiteral("hidden"));
    }

    void aRotatedLayerIsHitWithinItsFrame()
    {
        SlideElement turned = layer(QStringLiteral("turned"), {0, 0, 400, 100});
        turned.rotation = 90;
        SlideDesign design;
        design.elements = {turned};
        QCOMPARE(idAt(design, {10, 50}), QStringLiteral("turned"));
        QCOMPARE(idAt(design, {200, 200}), QString());
    }

    void aLayerNearTheCentreSnapsToIt_data()
    {
        QTest::addColumn<CanvasFrame>("frame");
        QTest::addColumn<CenterSnap>("expected");
        const auto row = [](const char *name, const CanvasFrame &frame, const CanvasFrame &snapped,
                            bool vertical, bool horizontal) {
            QTest::newRow(name) << frame << CenterSnap{snapped, vertical, horizontal};
        };
        row("17 units right of it", {777, 0, 400, 100}, {760, 0, 400, 100}, true, false);
        row("17 units left of it", {743, 0, 400, 100}, {760, 0, 400, 100}, true, false);
        row("18 units right of it", {778, 0, 400, 100}, {778, 0, 400, 100}, false, false);
        row("18 units left of it", {742, 0, 400, 100}, {742, 0, 400, 100}, false, false);
        row("just short of 18 units", {777.9, 0, 400, 100}, {760, 0, 400, 100}, true, false);
        row("17 units below it", {0, 507, 400, 100}, {0, 490, 400, 100}, false, true);
        row("18 units above it", {0, 472, 400, 100}, {0, 472, 400, 100}, false, false);
        row("both ways", {770, 480, 400, 100}, {760, 490, 400, 100}, true, true);
        row("on it", {760, 490, 400, 100}, {760, 490, 400, 100}, true, true);
        row("larger than the canvas", {-990, 0, 3910, 100}, {-995, 0, 3910, 100}, true, false);
    }

    void aLayerNearTheCentreSnapsToIt()
    {
        QFETCH(CanvasFrame, frame);
        QFETCH(CenterSnap, expected);
        QVERIFY(applyCenterSnap(frame, fullHD) == expected);
    }

    void resizingKeepsTheCornerTheSmallestSizeAndTheCanvas_data()
    {
        QTest::addColumn<CanvasFrame>("start");
        QTest::addColumn<QPointF>("translation");
        QTest::addColumn<CanvasFrame>("expected");
        const CanvasFrame usual{100, 100, 400, 300};
        QTest::newRow("larger") << usual << QPointF(50, 60) << CanvasFrame{100, 100, 450, 360};
        QTest::newRow("smaller") << usual << QPointF(-50, -60) << CanvasFrame{100, 100, 350, 240};
        QTest::newRow("to the smallest size")
            << usual << QPointF(-1000, -1000) << CanvasFrame{100, 100, 80, 48};
        QTest::newRow("to the edge of the canvas")
            << usual << QPointF(5000, 5000) << CanvasFrame{100, 100, 1820, 980};
        QTest::newRow("from within 80 units of the right edge")
            << CanvasFrame{1900, 100, 200, 300} << QPointF(10, 0)
            << CanvasFrame{1900, 100, 20, 300};
        QTest::newRow("from within 48 units of the bottom edge")
            << CanvasFrame{100, 1050, 400, 300} << QPointF(0, 10)
            << CanvasFrame{100, 1050, 400, 30};
        QTest::newRow("from the edge itself")
            << CanvasFrame{1920, 1080, 100, 100} << QPointF(0, 0) << CanvasFrame{1920, 1080, 0, 0};
        QTest::newRow("from beyond the canvas")
            << CanvasFrame{2000, 1200, 100, 100} << QPointF(0, 0)
            << CanvasFrame{2000, 1200, -80, -120};
        QTest::newRow("from left of the canvas")
            << CanvasFrame{-500, -400, 600, 500} << QPointF(5000, 5000)
            << CanvasFrame{-500, -400, 2420, 1480};
    }

    void resizingKeepsTheCornerTheSmallestSizeAndTheCanvas()
    {
        QFETCH(CanvasFrame, start);
        QFETCH(QPointF, translation);
        QFETCH(CanvasFrame, expected);
        const CanvasFrame resized = resizedWithin(start, translation, fullHD);
        QVERIFY(resized == expected);
    }

    void theHandleIsTwelvePointsAroundTheCornerWhateverTheBox_data()
    {
        QTest::addColumn<QRectF>("box");
        QTest::addColumn<QRectF>("expected");
        QTest::newRow("large") << QRectF(10, 20, 300, 200) << QRectF(304, 214, 12, 12);
        QTest::newRow("tiny") << QRectF(10, 20, 1, 0.5) << QRectF(5, 14.5, 12, 12);
        QTest::newRow("negative") << QRectF(100, 100, -20, -10) << QRectF(74, 84, 12, 12);
    }

    void theHandleIsTwelvePointsAroundTheCornerWhateverTheBox()
    {
        QFETCH(QRectF, box);
        QFETCH(QRectF, expected);
        QCOMPARE(resizeHandle(box), expected);
    }
};

QUENARA_TEST(TestPointerGeometry)

} // namespace tst_pointer_geometry

#include "tst_pointer_geometry.moc"
