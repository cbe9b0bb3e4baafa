#include "ControlTest.h"
#include "Switch.h"

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_switch {

class TestSwitch : public GuiTest
{
    Q_OBJECT

private slots:
    void aClickTurnsItAndItsLookTellsWhichWay()
    {
        Shown control(new Switch(u"Locked"_s));
        const QImage off = control.control.grab().toImage();
        QTest::mouseClick(&control.control, Qt::LeftButton);
        QVERIFY(control.control.isChecked());
        QVERIFY(control.control.grab().toImage() != off);
        QTest::mouseClick(&control.control, Qt::LeftButton);
        QVERIFY(!control.control.isChecked());
        QCOMPARE(control.control.grab().toImage(), off);
    }

    void itsLookTellsThatItIsPressed()
    {
        Shown control(new Switch(u"Locked"_s));
        const QImage released = control.control.grab().toImage();
        QTest::mousePress(&control.control, Qt::LeftButton);
        QVERIFY(control.control.grab().toImage() != released);
        QTest::mouseRelease(&control.control, Qt::LeftButton);
    }
};

QUENARA_GUI_TEST(TestSwitch)

} // namespace tst_switch

#include "tst_switch.moc"
