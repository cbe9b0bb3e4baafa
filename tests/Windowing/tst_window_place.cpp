#include "GuiTestSupport.h"
#include "WindowPlace.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace quenara;
using namespace quenara::test;

namespace tst_window_place {

namespace {

WindowPlace somePlace()
{
    return {.screen = QStringLiteral("eDP-1"),
            .corner = {40, 60},
            .size = {1200, 800},
            .frame = {1, 20, 3, 4},
            .isMaximized = true};
}

QRect outerRect(const WindowPlace &place)
{
    return {place.corner, place.size.grownBy(place.frame)};
}

} // namespace

class TestWindowPlace : public GuiTest
{
    Q_OBJECT

private slots:
    void aPlaceIsReadAsItWasWritten()
    {
        QCOMPARE(decodeWindowPlace(encode(somePlace())), std::optional(somePlace()));
    }

    void placesThatDifferByRoundingAloneLieBesideEachOther_data()
    {
        QTest::addColumn<std::function<void(WindowPlace &)>>("change");
        QTest::addColumn<bool>("expected");
        const auto row = [](const char *name, bool expected, auto change) {
            QTest::newRow(name) << std::function<void(WindowPlace &)>(change) << expected;
        };
        row("the same", true, [](WindowPlace &) {});
        row("a point lower, to the left, smaller", true, [](WindowPlace &place) {
            place.corner += QPoint(-1, 1);
            place.size -= QSize(1, 1);
        });
        row("another frame", true, [](WindowPlace &place) { place.frame = {}; });
        row("two points lower", false, [](WindowPlace &place) { place.corner.ry() += 2; });
        row("two points to the left", false, [](WindowPlace &place) { place.corner.rx() -= 2; });
        row("wider", false, [](WindowPlace &place) { place.size.rwidth() += 2; });
        row("lower", false, [](WindowPlace &place) { place.size.rheight() -= 2; });
        row("another screen", false, [](WindowPlace &place) { place.screen += u'2'; });
        row("not maximized", false, [](WindowPlace &place) { place.isMaximized = false; });
    }

    void placesThatDifferByRoundingAloneLieBesideEachOther()
    {
        QFETCH(std::function<void(WindowPlace &)>, change);
        QFETCH(bool, expected);
        WindowPlace other = somePlace();
        change(other);
        QCOMPARE(isBeside(somePlace(), other), expected);
    }

    void aWindowIsBroughtWithinTheScreen_data()
    {
        QTest::addColumn<QRect>("outer");
        QTest::addColumn<QRect>("expected");
        const QRect available(0, 27, 1366, 741);
        QTest::newRow("one that lies there stays")
            << QRect(100, 50, 900, 600) << QRect(100, 50, 900, 600);
        QTest::newRow("one that fills it stays") << available << available;
        QTest::newRow("one beyond its right and lower edge is moved")
            << QRect(1000, 500, 900, 600) << QRect(466, 168, 900, 600);
        QTest::newRow("one beyond its left and upper edge is moved")
            << QRect(-300, -40, 900, 600) << QRect(0, 27, 900, 600);
        QTest::newRow("one that is far away is moved")
            << QRect(90000, -90000, 900, 600) << QRect(466, 27, 900, 600);
        QTest::newRow("one that is too large is made smaller, with its frame")
            << QRect(100, 100, 1920, 1080) << available;
    }

    void aWindowIsBroughtWithinTheScreen()
    {
        QFETCH(QRect, outer);
        QFETCH(QRect, expected);
        WindowPlace place = somePlace();
        place.corner = outer.topLeft();
        place.size = outer.size().shrunkBy(place.frame);
        const WindowPlace within = broughtWithin(QRect(0, 27, 1366, 741), place);
        QCOMPARE(outerRect(within), expected);
        QCOMPARE(within.frame, place.frame);
        QCOMPARE(within.screen, place.screen);
        QCOMPARE(within.isMaximized, place.isMaximized);
    }

    void aScreenSmallerThanTheFrameStillGivesAWindow()
    {
        QVERIFY(!broughtWithin(QRect(0, 0, 10, 10), somePlace()).size.isEmpty());
    }

    void whatIsNoPlaceIsNotRead_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("no JSON") << QByteArray("{\"x\": 1");
        QTest::newRow("an array") << QByteArray("[1, 2]");
        QTest::newRow("an empty object") << QByteArray("{}");
        QTest::newRow("deep nesting") << QByteArray(100'000, '[');
        const auto with = [](const char *name, const char *key, const QJsonValue &value) {
            QJsonObject object = QJsonDocument::fromJson(encode(somePlace())).object();
            object.insert(QLatin1String(key), value);
            QTest::newRow(name) << QJsonDocument(object).toJson();
        };
        with("a width that is a text", "width", QStringLiteral("1200"));
        with("a width of nothing", "width", QJsonValue::Null);
        with("no width", "width", 0);
        with("a negative height", "height", -800);
        with("a width of billions", "width", 4e9);
        with("a place beyond any desktop", "x", 1e300);
        with("half a point", "y", 0.5);
        with("a negative frame", "frameTop", -20);
        with("a frame as large as a window", "frameTop", 5000);
        with("a screen that is a number", "screen", 1);
        with("a maximized state that is a text", "isMaximized", QStringLiteral("true"));
    }

    void whatIsNoPlaceIsNotRead()
    {
        QFETCH(QByteArray, json);
        QVERIFY(!decodeWindowPlace(json));
    }
};

QUENARA_GUI_TEST(TestWindowPlace)

} // namespace tst_window_place

#include "tst_window_place.moc"
