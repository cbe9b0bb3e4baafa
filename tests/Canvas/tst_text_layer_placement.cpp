#include "TestMain.h"
#include "TextLayerPlacement.h"

#include <QTest>

using namespace quenara;

namespace tst_text_layer_placement {

namespace {

/// A layer of 200 by 100 canvas units on a slide of half the canvas's size.
constexpr TextLayerPlacement half{.frame = {.x = 100, .y = 60, .width = 200, .height = 100},
                                  .padding = 18,
                                  .slideTopLeft = {20, 10},
                                  .scale = 0.5};

template<class Change>
TextLayerPlacement with(const Change &change)
{
    TextLayerPlacement placement = half;
    change(placement);
    return placement;
}

TextLayerPlacement turned(double degrees)
{
    return with([degrees](TextLayerPlacement &p) { p.rotation = degrees; });
}

TextLayerPlacement padded(double padding)
{
    return with([padding](TextLayerPlacement &p) { p.padding = padding; });
}

TextLayerPlacement framed(const CanvasFrame &frame)
{
    return with([&frame](TextLayerPlacement &p) { p.frame = frame; });
}

constexpr double manyTurns = 360.0 * (1LL << 40);

} // namespace

class TestTextLayerPlacement : public QObject
{
    Q_OBJECT

private slots:
    void theBoxIsTheFrameAtTheScaleOfTheSlide_data()
    {
        QTest::addColumn<TextLayerPlacement>("placement");
        QTest::addColumn<QRectF>("box");
        QTest::newRow("at half size") << half << QRectF(70, 40, 100, 50);
        QTest::newRow("at full size")
            << with([](TextLayerPlacement &p) { p.scale = 1; }) << QRectF(120, 70, 200, 100);
        QTest::newRow("however it is turned") << turned(30) << QRectF(70, 40, 100, 50);
        QTest::newRow("beyond the slide")
            << framed({-100, -60, 200, 100}) << QRectF(-30, -20, 100, 50);
        QTest::newRow("without a slide")
            << with([](TextLayerPlacement &p) { p.scale = 0; }) << QRectF(20, 10, 0, 0);
    }

    void theBoxIsTheFrameAtTheScaleOfTheSlide()
    {
        QFETCH(TextLayerPlacement, placement);
        QFETCH(QRectF, box);
        QCOMPARE(placement.box(), box);
    }

    void thePlateLeavesSomeRoomAroundTheText_data()
    {
        QTest::addColumn<TextLayerPlacement>("placement");
        QTest::addColumn<QRectF>("plate");
        QTest::newRow("that of a wide padding") << half << QRectF(70, 40, 100, 50);
        QTest::newRow("that of a padding of just four points")
            << padded(8) << QRectF(70, 40, 100, 50);
        QTest::newRow("what a narrow padding lacks") << padded(4) << QRectF(68, 38, 104, 54);
        QTest::newRow("four points without a padding") << padded(0) << QRectF(66, 36, 108, 58);
        QTest::newRow("more for a text that reaches beyond its box")
            << padded(-8) << QRectF(62, 32, 116, 66);
        QTest::newRow("and is seen even if the box is empty")
            << framed({100, 60, 0, 0}) << QRectF(70, 40, 8, 8);
        QTest::newRow("and is seen even if the box is narrow")
            << framed({100, 60, 4, 100}) << QRectF(70, 40, 8, 50);
    }

    void thePlateLeavesSomeRoomAroundTheText()
    {
        QFETCH(TextLayerPlacement, placement);
        QFETCH(QRectF, plate);
        QCOMPARE(placement.plate(), plate);
    }

    void aLayerIsTurnedUnlessItsTurnsAreWhole_data()
    {
        QTest::addColumn<double>("rotation");
        QTest::addColumn<bool>("isTurned");
        QTest::newRow("no turn") << 0.0 << false;
        QTest::newRow("one turn") << 360.0 << false;
        QTest::newRow("two turns back") << -720.0 << false;
        QTest::newRow("very many turns") << manyTurns << false;
        QTest::newRow("an eighth") << 45.0 << true;
        QTest::newRow("an eighth back") << -45.0 << true;
        QTest::newRow("a turn and an eighth") << 405.0 << true;
        QTest::newRow("a part of a degree") << 0.001 << true;
    }

    void aLayerIsTurnedUnlessItsTurnsAreWhole()
    {
        QFETCH(double, rotation);
        QFETCH(bool, isTurned);
        QCOMPARE(turned(rotation).isTurned(), isTurned);
    }

    void theOutlineIsThePlateTurnedAboutItsMiddle_data()
    {
        QTest::addColumn<TextLayerPlacement>("placement");
        QTest::addColumn<double>("margin");
        QTest::addColumn<QPointF>("topLeft");
        QTest::addColumn<QPointF>("bottomLeft");
        const auto row = [](const char *name, const TextLayerPlacement &placement, double margin,
                            const QPointF &topLeft, const QPointF &bottomLeft) {
            QTest::newRow(name) << placement << margin << topLeft << bottomLeft;
        };
        row("upright", half, 0, {70, 40}, {70, 90});
        row("upright, with a margin", half, 3, {67, 37}, {67, 93});
        row("upright, larger than the box", padded(0), 0, {66, 36}, {66, 94});
        row("a quarter clockwise", turned(90), 0, {145, 15}, {95, 15});
        row("a quarter clockwise, with a margin", turned(90), 3, {148, 12}, {92, 12});
        row("a quarter back", turned(-90), 0, {95, 115}, {145, 115});
        row("upside down", turned(180), 0, {170, 90}, {170, 40});
        row("very many turns and a quarter", turned(manyTurns + 90), 0, {145, 15}, {95, 15});
    }

    void theOutlineIsThePlateTurnedAboutItsMiddle()
    {
        QFETCH(TextLayerPlacement, placement);
        QFETCH(double, margin);
        QFETCH(QPointF, topLeft);
        QFETCH(QPointF, bottomLeft);
        const QPolygonF outline = placement.outline(margin);
        QVERIFY(outline.isClosed());
        QCOMPARE(outline.at(0), topLeft);
        QCOMPARE(outline.at(3), bottomLeft);
    }

    void pointsOfTheBoxLieWhereItIsTurnedTo_data()
    {
        QTest::addColumn<TextLayerPlacement>("placement");
        QTest::addColumn<QPointF>("topLeft");
        QTest::addColumn<QPointF>("middle");
        QTest::addColumn<QPointF>("bottomLeft");
        const QPointF middle(120, 65);
        QTest::newRow("upright") << half << QPointF(70, 40) << middle << QPointF(70, 90);
        QTest::newRow("upright, on a plate that is larger")
            << padded(0) << QPointF(70, 40) << middle << QPointF(70, 90);
        QTest::newRow("a quarter clockwise")
            << turned(90) << QPointF(145, 15) << middle << QPointF(95, 15);
        QTest::newRow("upside down")
            << turned(180) << QPointF(170, 90) << middle << QPointF(170, 40);
        QTest::newRow("very many turns and a quarter")
            << turned(manyTurns + 90) << QPointF(145, 15) << middle << QPointF(95, 15);
    }

    void pointsOfTheBoxLieWhereItIsTurnedTo()
    {
        QFETCH(TextLayerPlacement, placement);
        QFETCH(QPointF, topLeft);
        QFETCH(QPointF, middle);
        QFETCH(QPointF, bottomLeft);
        const QTransform fromBox = placement.fromBox();
        QCOMPARE(fromBox.map(QPointF(0, 0)), topLeft);
        QCOMPARE(fromBox.map(QPointF(50, 25)), middle);
        QCOMPARE(fromBox.map(QPointF(0, 50)), bottomLeft);
    }
};

QUENARA_TEST(TestTextLayerPlacement)

} // namespace tst_text_layer_placement

#include "tst_text_layer_placement.moc"
