#include "ClockView.h"
#include "GuiTestSupport.h"

#include <QTimer>

using namespace quenara;
using namespace quenara::test;

namespace tst_clock_view {

namespace {

const QLocale unitedStates(QLocale::English, QLocale::UnitedStates);

QDateTime at(int hour, int minute, int second, int milliseconds = 0)
{
    return {QDate(2026, 3, 1), QTime(hour, minute, second, milliseconds)};
}

/// A clock that is told what time it is.
struct Wall
{
    QDateTime now = at(10, 32, 7);
    ClockView clock{[this] { return now; }};
    QTimer *timer = clock.findChild<QTimer *>();

    explicit Wall(const QLocale &locale = unitedStates)
    {
        clock.setLocale(locale);
        clock.setFont(QFont(QApplication::font().family(), 26));
    }

    void show(const Caller &caller = Caller::current())
    {
        clock.show();
        if (!QTest::qWaitForWindowExposed(&clock))
            fail(QStringLiteral("the clock is not shown"), caller);
    }

    QImage imageAt(const QDateTime &time)
    {
        now = time;
        clock.hide();
        clock.show();
        clock.resize(clock.sizeHint());
        return clock.grab().toImage();
    }
};

/// The columns in which two images of one size differ.
QPair<int, int> differentColumns(const QImage &a, const QImage &b)
{
    QPair<int, int> columns{-1, -1};
    for (int x = 0; x < a.width(); ++x) {
        const QRect column(x, 0, 1, a.height());
        if (a.copy(column) == b.copy(column))
            continue;
        if (columns.first < 0)
            columns.first = x;
        columns.second = x;
    }
    return columns;
}

} // namespace

class TestClockView : public GuiTest
{
    Q_OBJECT

private slots:
    void theTimeIsWrittenAsTheLocaleWritesIt_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QTime>("time");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const QTime &time, const char *expected) {
            QTest::addRow("%s at %s", name, qPrintable(time.toString()))
                << QLocale(QString::fromLatin1(name)) << time << QString::fromUtf8(expected);
        };
        row("en_US", {10, 32, 7}, "10:32:07 AM");
        row("en_US", {0, 0, 5}, "12:00:05 AM");
        row("en_US", {12, 0, 0}, "12:00:00 PM");
        row("en_US", {21, 9, 59}, "9:09:59 PM");
        row("en_GB", {9, 5, 3}, "09:05:03");
        row("de_DE", {21, 5, 3}, "21:05:03");
        row("cs_CZ", {9, 5, 3}, "9:05:03");
        row("fi_FI", {9, 5, 3}, "9.05.03");
        row("ko_KR", {21, 5, 3}, "오후 9:05:03");
        row("ja_JP", {9, 5, 3}, "9:05:03");
        row("zh_TW", {9, 5, 3}, "上午9:05:03");
        row("ar_EG", {9, 5, 3}, "٩:٠٥:٠٣ ص");
        row("C", {9, 5, 3}, "09:05:03");
    }

    void theTimeIsWrittenAsTheLocaleWritesIt()
    {
        QFETCH(QLocale, locale);
        QFETCH(QTime, time);
        QFETCH(QString, expected);
        QCOMPARE(clockText(time, locale), expected);
    }

    void everyLocaleWritesHourMinutesAndSeconds()
    {
        const QList<QLocale> locales =
            QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry);
        for (const QLocale &locale : locales) {
            for (const int part : {1, 60, 3600}) {
                const QTime time(11, 11, 11);
                QVERIFY2(clockText(time, locale) != clockText(time.addSecs(part), locale),
                         qPrintable(locale.name()));
            }
        }
    }

    void theClockAdvancesWhenTheSecondIsOver()
    {
        Wall wall;
        wall.now = at(10, 32, 7, 990);
        wall.show();
        QCOMPARE(wall.clock.text(), QStringLiteral("10:32:07 AM"));
        wall.now = at(10, 32, 8, 2);
        QTRY_COMPARE(wall.clock.text(), QStringLiteral("10:32:08 AM"));
        QCOMPARE(wall.clock.accessibleName(), wall.clock.text());
    }

    void everyTickIsSetForTheNextSecondOfTheWallClock()
    {
        Wall wall;
        wall.now = at(10, 32, 7, 995);
        wall.show();
        QCOMPARE(wall.timer->interval(), 5);
        wall.now = at(10, 32, 8, 250);
        QTRY_COMPARE(wall.timer->interval(), 750);
        QVERIFY(wall.timer->isActive());
        QCOMPARE(wall.timer->timerType(), Qt::PreciseTimer);
    }

    void aTickBeforeTheSecondIsOverIsFollowedByOneAtItsEnd()
    {
        Wall wall;
        wall.now = at(10, 32, 7, 995);
        wall.show();
        wall.now = at(10, 32, 7, 999);
        QTRY_COMPARE(wall.timer->interval(), 1);
        QCOMPARE(wall.clock.text(), QStringLiteral("10:32:07 AM"));
        wall.now = at(10, 32, 8);
        QTRY_COMPARE(wall.clock.text(), QStringLiteral("10:32:08 AM"));
        QCOMPARE(wall.timer->interval(), 1000);
    }

    void aJumpOfTheWallClockIsFollowedAtTheNextTick_data()
    {
        QTest::addColumn<QDateTime>("after");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("interval");
        QTest::newRow("forwards") << at(12, 0, 0, 400) << QStringLiteral("12:00:00 PM") << 600;
        QTest::newRow("backwards") << at(9, 59, 59, 900) << QStringLiteral("9:59:59 AM") << 100;
    }

    void aJumpOfTheWallClockIsFollowedAtTheNextTick()
    {
        QFETCH(QDateTime, after);
        QFETCH(QString, text);
        QFETCH(int, interval);
        Wall wall;
        wall.now = at(10, 32, 7, 995);
        wall.show();
        wall.now = after;
        QTRY_COMPARE(wall.clock.text(), text);
        QCOMPARE(wall.timer->interval(), interval);
    }

    void itRunsOnlyWhileItIsShown()
    {
        Wall wall;
        QVERIFY(!wall.timer->isActive());
        wall.show();
        QVERIFY(wall.timer->isActive());
        wall.clock.hide();
        QVERIFY(!wall.timer->isActive());
        wall.now = at(11, 0, 0);
        wall.show();
        QVERIFY(wall.timer->isActive());
        QCOMPARE(wall.clock.text(), QStringLiteral("11:00:00 AM"));
    }

    void itIsAsWideAllDay()
    {
        Wall wall;
        const QSize size = wall.clock.sizeHint();
        for (const QDateTime &time : {at(0, 0, 0), at(1, 11, 11), at(10, 40, 44), at(20, 0, 0)}) {
            wall.imageAt(time);
            QCOMPARE(wall.clock.sizeHint(), size);
        }
    }

    void aDigitThatChangesMovesNoOther()
    {
        Wall wall;
        wall.clock.resize(wall.clock.sizeHint());
        const int digit = wall.clock.fontMetrics().horizontalAdvance(QLatin1Char('8'));
        for (int second = 10; second < 19; ++second) {
            const auto [first, last] = differentColumns(wall.imageAt(at(10, 32, second)),
                                                        wall.imageAt(at(10, 32, second + 1)));
            QVERIFY(first > wall.clock.width() / 2);
            QVERIFY2(last - first <= digit, QByteArray::number(last - first).constData());
        }
    }

    void itsSizeHasRoomForAllOfIt()
    {
        for (const char *name : {"en_US", "ar_EG", "ko_KR", "th_TH"}) {
            Wall wall{QLocale(QString::fromLatin1(name))};
            wall.now = at(22, 58, 48);
            wall.show();
            QPalette palette(Qt::black);
            palette.setColor(QPalette::WindowText, Qt::white);
            wall.clock.setPalette(palette);
            // What would be cut off at its own size is seen around it at a larger one.
            const QSize size = wall.clock.sizeHint();
            wall.clock.resize(size + QSize(40, 40));
            const QRect ink =
                inkOf(wall.clock.grab().toImage().convertToFormat(QImage::Format_RGB32));
            QVERIFY(ink.width() > size.width() / 2);
            QVERIFY2(QRect(QPoint(40, 20), size).contains(ink), name);
        }
    }
};

QUENARA_GUI_TEST(TestClockView)

} // namespace tst_clock_view

#include "tst_clock_view.moc"
