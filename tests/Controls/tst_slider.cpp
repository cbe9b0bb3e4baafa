#include "ControlTest.h"
#include "Pixels.h"
#include "Slider.h"
#include "ThemeColors.h"

#include <QSignalSpy>
#include <QWheelEvent>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_slider {

namespace {

/// A slider from -3 to 12 that shows the value it is pulled to, as one that is bound to a store.
struct Tracking : Shown<Slider>
{
    QList<double> values;
    QSignalSpy finished{&control, &Slider::editingFinished};

    explicit Tracking(double value) : Shown(new Slider(u"Tracking"_s, -3, 12))
    {
        control.setValue(value);
        QObject::connect(&control, &Slider::edited, &control, [this](double edited) {
            values.append(edited);
            control.setValue(edited);
        });
    }

    QPoint at(double part) const
    {
        return {qRound(part * (control.width() - 1)), control.height() / 2};
    }
    void press(double part) { QTest::mousePress(&control, Qt::LeftButton, {}, at(part)); }
    void moveTo(double part) { QTest::mouseMove(&control, at(part)); }
    void release(double part) { QTest::mouseRelease(&control, Qt::LeftButton, {}, at(part)); }
};

} // namespace

class TestSlider : public GuiTest
{
    Q_OBJECT

private slots:
    void aPressBesideTheKnobTakesItThere()
    {
        Tracking slider(-3);
        slider.press(0.5);
        QCOMPARE(slider.values.size(), 1);
        QVERIFY(std::abs(slider.values.constFirst() - 4.5) < 0.1);
        QVERIFY(slider.finished.isEmpty());
        slider.release(0.5);
        QCOMPARE(slider.finished.size(), 1);
    }

    void aPressOnTheKnobLeavesItWhereItIs()
    {
        Tracking slider(4.5);
        slider.press(0.52);
        slider.release(0.52);
        QCOMPARE(slider.values, QList<double>());
    }

    void theKnobStaysUnderThePointerWhereItWasTaken()
    {
        Tracking slider(4.5);
        slider.press(0.52);
        slider.moveTo(0.7);
        slider.moveTo(0.52);
        QCOMPARE(slider.values.size(), 2);
        QVERIFY(std::abs(slider.values.constLast() - 4.5) < 1e-9);
    }

    void aPullIsToldOfContinuouslyAndFinishedOnce()
    {
        Tracking slider(-3);
        slider.press(0);
        for (const double part : {0.1, 0.2, 0.3, 0.4})
            slider.moveTo(part);
        QCOMPARE(slider.values.size(), 4);
        QVERIFY(std::is_sorted(slider.values.begin(), slider.values.end()));
        QVERIFY(slider.finished.isEmpty());
        slider.release(0.4);
        QCOMPARE(slider.finished.size(), 1);
    }

    void controlAndTheArrowsMoveTheKnobByAFiftiethOfTheRange_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<double>("value");
        QTest::newRow("right goes up") << Qt::Key_Right << 4.8;
        QTest::newRow("up goes up") << Qt::Key_Up << 4.8;
        QTest::newRow("left goes down") << Qt::Key_Left << 4.2;
        QTest::newRow("down goes down") << Qt::Key_Down << 4.2;
    }

    void controlAndTheArrowsMoveTheKnobByAFiftiethOfTheRange()
    {
        QFETCH(const Qt::Key, key);
        QFETCH(const double, value);
        Tracking slider(4.5);
        slider.control.setFocus(Qt::TabFocusReason);
        QTest::keyClick(slider.window.windowHandle(), key, Qt::ControlModifier);
        QCOMPARE(slider.values, QList<double>{value});
        QCOMPARE(slider.finished.size(), 1);
    }

    void aKeyThatIsHeldIsFinishedWhenItIsLetGoOf()
    {
        Tracking slider(4.5);
        slider.control.setFocus(Qt::TabFocusReason);
        for (int i = 0; i < 3; ++i)
            QTest::keyPress(slider.window.windowHandle(), Qt::Key_Right, Qt::ControlModifier);
        // Between the repeats of a held key, X11 has releases.
        QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_Right, Qt::ControlModifier, {}, true);
        QApplication::sendEvent(&slider.control, &repeated);
        QCOMPARE(slider.values.size(), 3);
        QVERIFY(slider.finished.isEmpty());
        QTest::keyRelease(slider.window.windowHandle(), Qt::Key_Right);
        QCOMPARE(slider.finished.size(), 1);
    }

    void aKeyThatIsHeldIsFinishedWhenTheFocusGoesElsewhere()
    {
        Tracking slider(4.5);
        slider.control.setFocus(Qt::TabFocusReason);
        QTest::keyPress(slider.window.windowHandle(), Qt::Key_Right, Qt::ControlModifier);
        slider.control.clearFocus();
        QCOMPARE(slider.finished.size(), 1);
        QTest::keyRelease(slider.window.windowHandle(), Qt::Key_Right);
        QCOMPARE(slider.finished.size(), 1);
    }

    void theKeysEndAtTheEndsOfTheRange()
    {
        Tracking slider(11.9);
        slider.control.setFocus(Qt::TabFocusReason);
        QTest::keyClick(slider.window.windowHandle(), Qt::Key_Right, Qt::ControlModifier);
        QTest::keyClick(slider.window.windowHandle(), Qt::Key_Right, Qt::ControlModifier);
        QCOMPARE(slider.values, QList<double>{12});
    }

    void otherKeysAreLeftToTheShow()
    {
        Tracking slider(4.5);
        slider.control.setFocus(Qt::TabFocusReason);
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
            QKeyEvent plain(QEvent::KeyPress, key, Qt::NoModifier);
            plain.accept();
            QApplication::sendEvent(&slider.control, &plain);
            QVERIFY(!plain.isAccepted());
            QTest::keyClick(slider.window.windowHandle(), key,
                            Qt::ControlModifier | Qt::ShiftModifier);
        }
        QCOMPARE(slider.values, QList<double>());
    }

    void thePullEndsAtTheEndsOfTheRange()
    {
        Tracking slider(4.5);
        slider.press(0.5);
        slider.moveTo(3);
        QCOMPARE(slider.values.constLast(), 12.0);
        slider.moveTo(-3);
        QCOMPARE(slider.values.constLast(), -3.0);
    }

    void aPullThatIsEndedGoesNoFurther()
    {
        Tracking slider(-3);
        slider.press(0.5);
        slider.control.endEditing();
        slider.moveTo(1);
        QCOMPARE(slider.values.size(), 1);
    }

    void aPointerThatIsNotPressedPullsNothing()
    {
        Tracking slider(-3);
        slider.moveTo(0.5);
        slider.moveTo(0.7);
        QTest::mouseClick(&slider.control, Qt::RightButton, {}, slider.at(0.5));
        QCOMPARE(slider.values, QList<double>());
    }

    void aValueOutsideTheRangeIsKeptWhileTheKnobStandsAtTheEnd()
    {
        Tracking slider(40);
        const QImage beyond = slider.control.grab().toImage();
        QCOMPARE(slider.control.value(), 40.0);
        slider.control.setValue(12);
        QCOMPARE(slider.control.grab().toImage(), beyond);
    }

    void aSliderThatIsOfNoUseHasNoAccent()
    {
        Tracking slider(12);
        const auto accents = [&] {
            const ZelvoTheme &theme = themeOf(slider.control);
            const QImage image = slider.control.grab().toImage();
            return pixelsOf(theme.accent, image) + pixelsOf(theme.accentHover, image);
        };
        QVERIFY(accents() > 0);
        slider.control.setEnabled(false);
        QCOMPARE(accents(), 0);
    }

    void theMouseWheelIsLeftToWhatTheSliderLiesIn()
    {
        Tracking slider(4.5);
        const QPointF middle = slider.at(0.5);
        QWheelEvent turn(middle, slider.control.mapToGlobal(middle), {}, {0, 120}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&slider.control, &turn);
        QVERIFY(!turn.isAccepted());
        QCOMPARE(slider.values, QList<double>());
    }
};

QUENARA_GUI_TEST(TestSlider)

} // namespace tst_slider

#include "tst_slider.moc"
