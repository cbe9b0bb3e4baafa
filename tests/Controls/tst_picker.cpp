#include "ControlTest.h"
#include "Picker.h"

#include <QAbstractItemView>
#include <QCursor>
#include <QSignalSpy>

#include <memory>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_picker {

namespace {

Picker *directions()
{
    auto *picker = new Picker(u"Direction"_s);
    picker->addItems({u"Vertical"_s, u"Horizontal"_s, u"Diagonal"_s});
    return picker;
}

} // namespace

class TestPicker : public GuiTest
{
    Q_OBJECT

private slots:
    void thePickerThatIsOfNoUseHasAFainterChevron()
    {
        applyTheme(ZelvoTheme::dark());
        Shown picker(directions());
        const auto chevron = [&] {
            const QSize size = picker.control.size();
            return picker.control.grab(QRect(size.width() - 22, 5, 14, size.height() - 10))
                .toImage();
        };
        const QImage inUse = chevron();
        picker.control.setEnabled(false);
        QVERIFY(chevron() != inUse);
        picker.control.setEnabled(true);
        QCOMPARE(chevron(), inUse);
    }

    void aPickerThatIsMadeUnderThePointerDoesNotTakeThatForOverIt()
    {
        QCursor::setPos(10, 10);
        std::unique_ptr<Picker> picker(directions());
        QVERIFY(picker->rect().contains(picker->mapFromGlobal(QCursor::pos())));
        picker->setEnabled(false);
        picker->setEnabled(true);
        QVERIFY(!picker->underMouse());
    }

    void keysDoNotChooseWhileTheListIsClosed_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("a letter") << Qt::Key_H;
        QTest::newRow("Down") << Qt::Key_Down;
        QTest::newRow("End") << Qt::Key_End;
        QTest::newRow("Space") << Qt::Key_Space;
        QTest::newRow("Return") << Qt::Key_Return;
    }

    void keysDoNotChooseWhileTheListIsClosed()
    {
        QFETCH(Qt::Key, key);
        Shown picker(directions());
        picker.control.setFocus();
        const QSignalSpy activated(&picker.control, &Picker::activated);
        QTest::keyClick(&picker.control, key);
        QCOMPARE(picker.control.currentText(), u"Vertical"_s);
        QVERIFY(!picker.control.view()->isVisible());
        QVERIFY(activated.isEmpty());
    }

    void aKeyOpensTheListAndOthersChooseInIt()
    {
        Shown picker(directions());
        picker.control.setFocus();
        const QSignalSpy activated(&picker.control, &Picker::activated);
        QTest::keyClick(&picker.control, Qt::Key_Down, Qt::AltModifier);
        QVERIFY(picker.control.view()->isVisible());
        QTest::keyClick(picker.control.view(), Qt::Key_Down);
        QTest::keyClick(picker.control.view(), Qt::Key_Return);
        QCOMPARE(picker.control.currentText(), u"Horizontal"_s);
        QCOMPARE(activated.size(), 1);
    }
};

QUENARA_GUI_TEST(TestPicker)

} // namespace tst_picker

#include "tst_picker.moc"
