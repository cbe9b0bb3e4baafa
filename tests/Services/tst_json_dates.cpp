#include "JsonDates.h"
#include "TestMain.h"

#include <QTest>
#include <QTimeZone>

using namespace quenara::json;
using namespace Qt::StringLiterals;

namespace tst_json_dates {

class TestJsonDates : public QObject
{
    Q_OBJECT

private slots:
    void internetTextIsReadInExactlyOneForm_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("readable");
        QTest::newRow("whole seconds in UTC") << u"2026-03-01T09:30:00Z"_s << true;
        QTest::newRow("a leap day") << u"2024-02-29T23:59:59Z"_s << true;
        QTest::newRow("no leap day that year") << u"2026-02-29T00:00:00Z"_s << false;
        QTest::newRow("fractional seconds") << u"2026-03-01T09:30:00.5Z"_s << false;
        QTest::newRow("an offset") << u"2026-03-01T09:30:00+01:00"_s << false;
        QTest::newRow("no zone") << u"2026-03-01T09:30:00"_s << false;
        QTest::newRow("a date alone") << u"2026-03-01"_s << false;
        QTest::newRow("a space for the T") << u"2026-03-01 09:30:00Z"_s << false;
        QTest::newRow("a small t") << u"2026-03-01t09:30:00Z"_s << false;
        QTest::newRow("no such month") << u"2026-13-01T09:30:00Z"_s << false;
        QTest::newRow("30 February") << u"2024-02-30T00:00:00Z"_s << false;
        QTest::newRow("the first year") << u"0001-01-01T00:00:00Z"_s << true;
        QTest::newRow("the last year of four digits") << u"9999-12-31T23:59:59Z"_s << true;
        QTest::newRow("the year before the first") << u"0000-06-15T12:00:00Z"_s << false;
        QTest::newRow("a leap second") << u"2016-12-31T23:59:60Z"_s << false;
        QTest::newRow("no such minute") << u"2026-03-01T09:60:00Z"_s << false;
        QTest::newRow("a small z") << u"2026-03-01T09:30:00z"_s << false;
        QTest::newRow("an offset of nothing") << u"2026-03-01T09:30:00+00:00"_s << false;
        QTest::newRow("digits of another script") << u"\u0662026-03-01T09:30:00Z"_s << false;
        QTest::newRow("no such hour") << u"2026-03-01T24:00:00Z"_s << false;
        QTest::newRow("a sign for a digit") << u"-026-03-01T09:30:00Z"_s << false;
        QTest::newRow("a space after it") << u"2026-03-01T09:30:00Z "_s << false;
        QTest::newRow("nothing") << QString() << false;
    }

    void internetTextIsReadInExactlyOneForm()
    {
        QFETCH(QString, text);
        QFETCH(bool, readable);
        const std::string bytes = text.toStdString();
        const auto date = dateFromInternetText(bytes);
        QCOMPARE(date.has_value(), readable);
        if (readable)
            QCOMPARE(internetText(*date), bytes);
    }

    void aDateIsWrittenInUtcWithoutItsFractionOfASecond()
    {
        const QDateTime east(QDate(2026, 3, 1), QTime(0, 30, 0, 999), QTimeZone(3600));
        QCOMPARE(internetText(east), std::string("2026-02-28T23:30:00Z"));
    }

    void referenceSecondsCountFromTheBeginningOf2001()
    {
        QCOMPARE(referenceSeconds(QDateTime(QDate(2001, 1, 1), QTime(0, 0), QTimeZone::utc())),
                 0.0);
        QCOMPARE(
            referenceSeconds(QDateTime(QDate(2000, 12, 31), QTime(23, 59, 58), QTimeZone::utc())),
            -2.0);
        QCOMPARE(
            referenceSeconds(QDateTime(QDate(2001, 1, 1), QTime(0, 0, 0, 1), QTimeZone::utc())),
            0.001);
    }
};

QUENARA_TEST(TestJsonDates)

} // namespace tst_json_dates

#include "tst_json_dates.moc"
