#include "ControlTest.h"
#include "Stepper.h"
#include "SymbolButton.h"

#include <QSignalSpy>

#include <limits>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_stepper {

namespace {

/// A stepper from 12 to 180 that shows the value it was stepped to.
struct Size : Shown<Stepper>
{
    QList<double> values;
    QSignalSpy finished{&control, &Stepper::editingFinished};

    explicit Size(double value)
        : Shown(new Stepper(u"Size"_s, {.minimum = 12, .maximum = 180, .step = 2}))
    {
        control.setValue(value);
        QObject::connect(&control, &Stepper::edited, &control, [this](double edited) {
            values.append(edited);
            control.setValue(edited);
        });
    }

    SymbolButton *button(bool up) const { return control.findChildren<SymbolButton *>().at(up); }
};

} // namespace

class TestStepper : public GuiTest
{
    Q_OBJECT

private slots:
    void theNumberIsShownTruncatedAfterItsTitle_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("whole") << 72.0 << "Size 72";
        QTest::newRow("nearly the next") << 72.9 << "Size 72";
        QTest::newRow("negative") << -0.9 << "Size 0";
        QTest::newRow("beyond whole numbers") << 1e19 << "Size 10000000000000000000";
    }

    void theNumberIsShownTruncatedAfterItsTitle()
    {
        QFETCH(double, value);
        const Size size(value);
        QTEST(size.control.shownText(), "text");
    }

    void aClickIsAStepWithinTheBounds_data()
    {
        QTest::addColumn<double>("from");
        QTest::addColumn<bool>("up");
        QTest::addColumn<QList<double>>("to");
        QTest::newRow("up") << 72.0 << true << QList<double>{74};
        QTest::newRow("down") << 72.0 << false << QList<double>{70};
        QTest::newRow("up from the maximum") << 180.0 << true << QList<double>{};
        QTest::newRow("down from the minimum") << 12.0 << false << QList<double>{};
        QTest::newRow("up to the maximum") << 179.0 << true << QList<double>{180};
        QTest::newRow("down to the minimum") << 13.0 << false << QList<double>{12};
        QTest::newRow("up from below") << 4.0 << true << QList<double>{12};
        QTest::newRow("down from below") << 4.0 << false << QList<double>{};
        QTest::newRow("up from above") << 300.0 << true << QList<double>{};
        QTest::newRow("down from above") << 300.0 << false << QList<double>{180};
    }

    void aClickIsAStepWithinTheBounds()
    {
        QFETCH(double, from);
        QFETCH(bool, up);
        Size size(from);
        QTest::mouseClick(size.button(up), Qt::LeftButton);
        QTEST(size.values, "to");
    }

    void eachClickIsFinishedByItself()
    {
        Size size(72);
        for (int clicks = 1; clicks <= 3; ++clicks) {
            QTest::mouseClick(size.button(true), Qt::LeftButton);
            QCOMPARE(size.values.size(), clicks);
            QCOMPARE(size.finished.size(), clicks);
        }
    }

    void aButtonThatIsHeldGoesOnUntilItIsLetGo()
    {
        Size size(72);
        QTest::mousePress(size.button(true), Qt::LeftButton);
        QTRY_VERIFY(size.values.size() >= 3);
        QVERIFY(size.finished.isEmpty());
        QTest::mouseRelease(size.button(true), Qt::LeftButton);
        QCOMPARE(size.finished.size(), 1);
        QCOMPARE(size.values.constLast(), 72.0 + 2 * double(size.values.size()));
    }

    void aButtonThatThePointerLeavesIsLetGo()
    {
        Size size(72);
        QTest::mousePress(size.button(true), Qt::LeftButton);
        QMouseEvent leave(QEvent::MouseMove, QPointF(-50, -50),
                          size.button(true)->mapToGlobal(QPointF(-50, -50)), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(size.button(true), &leave);
        QCOMPARE(size.finished.size(), 1);
    }
};

QUENARA_GUI_TEST(TestStepper)

} // namespace tst_stepper

#include "tst_stepper.moc"
