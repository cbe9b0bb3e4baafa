#include "GuiTestSupport.h"
#include "KeyboardClaim.h"

#include <QPointer>
#include <QSignalSpy>

using namespace quenara;
using namespace quenara::test;

namespace tst_keyboard_claim {

class TestKeyboardClaim : public GuiTest
{
    Q_OBJECT

private slots:
    void aWindowKeepsTheKeyboardThatAnotherOneAskedForBefore()
    {
        QWidget asking;
        QWidget claiming;
        showActive(asking);
        showActive(claiming);
        const QSignalSpy passed(qApp, &QGuiApplication::focusWindowChanged);
        const QPointer claim = new KeyboardClaim(claiming);
        asking.activateWindow();
        QTRY_VERIFY(!claim);
        QCOMPARE(passed.size(), 2); // there and back
        QVERIFY(claiming.isActiveWindow());
    }

    void whoPressesSomethingElsewhereIsNotInterrupted_data()
    {
        QTest::addColumn<bool>("isKey");
        QTest::newRow("a key") << true;
        QTest::newRow("the mouse") << false;
    }

    void whoPressesSomethingElsewhereIsNotInterrupted()
    {
        QFETCH(bool, isKey);
        QWidget asking;
        QWidget claiming;
        showActive(asking);
        showActive(claiming);
        const QPointer claim = new KeyboardClaim(claiming);
        asking.activateWindow();
        if (isKey) {
            QTest::keyClick(asking.windowHandle(), Qt::Key_A);
        } else {
            QTest::mouseClick(&asking, Qt::LeftButton);
        }
        QTRY_VERIFY(!claim);
        QVERIFY(asking.isActiveWindow());
    }

    void aWindowThatOpensLaterHasTheKeyboard()
    {
        QWidget claiming;
        showActive(claiming);
        const QPointer claim = new KeyboardClaim(claiming);
        QWidget question;
        showActive(question);
        QTRY_VERIFY(!claim);
        QVERIFY(question.isActiveWindow());
    }

    void whatOpensWithoutTakingTheKeyboardEndsNoClaim_data()
    {
        QTest::addColumn<bool>("isToolTip");
        QTest::newRow("a tooltip") << true;
        QTest::newRow("an output that comes by itself") << false;
    }

    void whatOpensWithoutTakingTheKeyboardEndsNoClaim()
    {
        QFETCH(bool, isToolTip);
        QWidget asking;
        QWidget claiming;
        showActive(asking);
        showActive(claiming);
        const QPointer claim = new KeyboardClaim(claiming);
        QWidget opened(nullptr, isToolTip ? Qt::ToolTip : Qt::Window);
        opened.setAttribute(Qt::WA_ShowWithoutActivating, !isToolTip);
        opened.show();
        asking.activateWindow();
        QTRY_VERIFY(!claim);
        QVERIFY(claiming.isActiveWindow());
    }

    void aWindowThatClosesClaimsNothing()
    {
        QWidget asking;
        showActive(asking);
        auto claiming = std::make_unique<QWidget>();
        showActive(*claiming);
        const QPointer claim = new KeyboardClaim(*claiming);
        claiming.reset();
        QVERIFY(!claim);
    }
};

QUENARA_GUI_TEST(TestKeyboardClaim)

} // namespace tst_keyboard_claim

#include "tst_keyboard_claim.moc"
