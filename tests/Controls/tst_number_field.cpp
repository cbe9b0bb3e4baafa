#include "ControlTest.h"
#include "NumberField.h"

#include <QLocale>
#include <QSignalSpy>

#include <optional>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_number_field {

namespace {

/// A field with the focus that shows what is entered, as one that is bound to a store.
struct Entry : Shown<NumberField>
{
    QList<double> entered;

    explicit Entry(std::optional<double> number, double minimum = -1e9)
        : Shown(new NumberField(u"Width"_s, minimum))
    {
        control.showNumber(number);
        QObject::connect(&control, &NumberField::edited, &control, [this](double value) {
            entered.append(value);
            control.showNumber(value);
        });
        control.setFocus();
        control.selectAll();
    }

    void type(const QString &text) { QTest::keyClicks(&control, text); }
    void press(Qt::Key key) { QTest::keyClick(&control, key); }
};

} // namespace

class TestNumberField : public GuiTest
{
    Q_OBJECT

private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void numbersAreShownToHundredths_data()
    {
        QTest::addColumn<double>("number");
        QTest::addColumn<QString>("text");
        QTest::newRow("whole") << 180.0 << "180";
        QTest::newRow("a part") << 180.5 << "180.5";
        QTest::newRow("many digits") << 100.0 / 3 << "33.33";
        QTest::newRow("negative") << -42.0 << "-42";
        QTest::newRow("next to nothing") << -0.001 << "0";
        QTest::newRow("thousands") << 1234567.0 << "1234567";
        QTest::newRow("huge") << 1e20 << "100000000000000000000";
    }

    void numbersAreShownToHundredths()
    {
        QFETCH(double, number);
        Entry field(number);
        QTEST(field.control.text(), "text");
    }

    void theLargestNumbersAreShownAsTheyAre()
    {
        constexpr double large = 1e307;
        Entry field(large);
        QCOMPARE(field.control.text().toDouble(), large);
    }

    void aNumberIsEnteredWhenItsTypingEnds()
    {
        Entry field(7);
        field.type(u"123"_s);
        QCOMPARE(field.entered, QList<double>());
        field.press(Qt::Key_Return);
        QCOMPARE(field.entered, QList<double>{123});
        QVERIFY(!field.control.hasFocus());
    }

    void aNumberIsEnteredWhenTheFieldIsLeft()
    {
        Entry field(7);
        field.type(u"123"_s);
        field.control.clearFocus();
        QCOMPARE(field.entered, QList<double>{123});
    }

    void whatIsTypedIsTakenAsANumber_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("number");
        QTest::newRow("whole") << "12" << 12.0;
        QTest::newRow("negative") << "-12" << -12.0;
        QTest::newRow("a part") << "12.5" << 12.5;
        QTest::newRow("between spaces") << " 12 " << 12.0;
        QTest::newRow("with an exponent") << "1e3" << 1000.0;
    }

    void whatIsTypedIsTakenAsANumber()
    {
        QFETCH(QString, text);
        QFETCH(double, number);
        Entry field(7);
        field.type(text);
        field.press(Qt::Key_Return);
        QCOMPARE(field.entered, QList{number});
    }

    void whatIsNoNumberIsRefused_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("a word") << "wide";
        QTest::newRow("a sum") << "1+1";
        QTest::newRow("infinity") << "inf";
        QTest::newRow("no number by name") << "nan";
        QTest::newRow("beyond all numbers") << "1e999";
        QTest::newRow("grouped digits") << "1,000";
        QTest::newRow("a space") << " ";
    }

    void whatIsNoNumberIsRefused()
    {
        QFETCH(QString, text);
        Entry field(7);
        field.type(text);
        field.press(Qt::Key_Return);
        QCOMPARE(field.entered, QList<double>());
        QCOMPARE(field.control.text(), u"7"_s);
    }

    void nothingIsNoNumber()
    {
        Entry field(7);
        field.press(Qt::Key_Delete);
        field.press(Qt::Key_Return);
        QCOMPARE(field.entered, QList<double>());
        QCOMPARE(field.control.text(), u"7"_s);
    }

    void numbersGoByTheCustomsOfThePlaceOrThoseOfPrograms()
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        Entry field(1234.5);
        QCOMPARE(field.control.text(), u"1234,5"_s);
        field.type(u"2,5"_s);
        field.press(Qt::Key_Return);
        field.control.setFocus();
        field.control.selectAll();
        field.type(u"3.25"_s);
        field.press(Qt::Key_Return);
        QCOMPARE(field.entered, (QList<double>{2.5, 3.25}));
    }

    void whatIsBelowTheMinimumBecomesIt()
    {
        Entry field(200, 80);
        field.type(u"10"_s);
        field.press(Qt::Key_Return);
        QCOMPARE(field.entered, QList<double>{80});
        QCOMPARE(field.control.text(), u"80"_s);
    }

    void aFieldThatIsLeftAsItWasEntersNothing()
    {
        Entry field(100.0 / 3, 80);
        field.press(Qt::Key_Right);
        field.press(Qt::Key_Return);
        QCOMPARE(field.entered, QList<double>());
    }

    void upAndDownStepByOne()
    {
        Entry field(100.25, 100);
        field.press(Qt::Key_Up);
        field.press(Qt::Key_Up);
        field.press(Qt::Key_Down);
        field.press(Qt::Key_Down);
        field.press(Qt::Key_Down);
        QCOMPARE(field.entered, (QList<double>{101.25, 102.25, 101.25, 100.25, 100}));
        QVERIFY(field.control.hasFocus());
    }

    void aStepGoesFromWhatHasBeenTyped()
    {
        Entry field(7);
        field.type(u"50"_s);
        field.press(Qt::Key_Up);
        QCOMPARE(field.entered, QList<double>{51});
        QCOMPARE(field.control.text(), u"51"_s);
        field.control.selectAll();
        field.type(u"x"_s);
        field.press(Qt::Key_Down);
        QCOMPARE(field.entered, (QList<double>{51, 50}));
    }

    void escapePutsTheNumberBackAndLeaves()
    {
        Entry field(7);
        field.type(u"50"_s);
        field.press(Qt::Key_Escape);
        QCOMPARE(field.control.text(), u"7"_s);
        QVERIFY(!field.control.hasFocus());
        QCOMPARE(field.entered, QList<double>());
    }

    void anotherNumberLeavesWhatIsBeingTyped()
    {
        Entry field(7);
        field.type(u"50"_s);
        field.control.showNumber(8);
        QCOMPARE(field.control.text(), u"50"_s);
        field.press(Qt::Key_Escape);
        QCOMPARE(field.control.text(), u"8"_s);
    }

    void whatIsBeingTypedIsDroppedOnDemand()
    {
        Entry field(7);
        field.type(u"50"_s);
        field.control.endEditing();
        QCOMPARE(field.control.text(), u"7"_s);
        field.press(Qt::Key_Return);
        QCOMPARE(field.entered, QList<double>());
    }

    void withoutANumberTheFieldIsEmptyAndCannotStep()
    {
        Entry field(std::nullopt);
        QCOMPARE(field.control.text(), QString());
        field.press(Qt::Key_Up);
        QCOMPARE(field.entered, QList<double>());
    }
};

QUENARA_GUI_TEST(TestNumberField)

} // namespace tst_number_field

#include "tst_number_field.moc"
