#include "GuiTestSupport.h"
#include "ProgramWindows.h"

#include <QMenu>
#include <QMenuBar>

#include <algorithm>

using namespace quenara;
using namespace quenara::test;

namespace tst_display_escape {

namespace {

/// The program on a single screen, its display open and active.
struct CoveredProgram : ProgramWindows
{
    CoveredProgram()
    {
        openDisplay();
        activate(display());
    }

    QWidget &display() const { return *windows.displayWindow(); }
    void pressEscape() const { press(display(), Qt::Key_Escape); }
    bool isCovered() const { return windows.isDisplayWindowOpen(); }
};

} // namespace

/// On a single screen, the display lies over all that could close it.
class TestDisplayEscape : public GuiTest
{
    Q_OBJECT

private slots:
    void escapeTwiceClosesTheDisplay()
    {
        CoveredProgram program;
        program.pressEscape();
        QVERIFY(program.isCovered());
        program.pressEscape();
        QVERIFY(!program.isCovered());
    }

    void escapeOnceIsForgottenAfterASecond()
    {
        CoveredProgram program;
        program.pressEscape();
        QTest::qWait(1100);
        program.pressEscape();
        QVERIFY(program.isCovered());
        program.pressEscape();
        QVERIFY(!program.isCovered());
    }

    void anotherKeyBetweenTheTwoStartsAfresh_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("one of the show") << Qt::Key_B;
        QTest::newRow("one that does nothing") << Qt::Key_X;
        QTest::newRow("a modifier") << Qt::Key_Shift;
    }

    void anotherKeyBetweenTheTwoStartsAfresh()
    {
        QFETCH(Qt::Key, key);
        CoveredProgram program;
        program.pressEscape();
        CoveredProgram::press(program.display(), key);
        program.pressEscape();
        QVERIFY(program.isCovered());
        program.pressEscape();
        QVERIFY(!program.isCovered());
    }

    void aKeyInAnotherWindowBetweenTheTwoStartsAfresh()
    {
        CoveredProgram program;
        program.pressEscape();
        ProgramWindows::activate(program.operatorWindow);
        ProgramWindows::press(program.operatorWindow, Qt::Key_Right);
        ProgramWindows::activate(program.display());
        program.pressEscape();
        QVERIFY(program.isCovered());
    }

    void aHeldEscapeIsPressedOnce()
    {
        CoveredProgram program;
        program.pressEscape();
        for (int i = 0; i < 3; ++i) {
            QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(program.display().windowHandle(), &repeat);
        }
        QVERIFY(program.isCovered());
    }

    void escapeInTheOperatorsWindowLeavesTheDisplayOpen()
    {
        CoveredProgram program;
        ProgramWindows::activate(program.operatorWindow);
        for (int i = 0; i < 2; ++i)
            ProgramWindows::press(program.operatorWindow, Qt::Key_Escape);
        QVERIFY(program.isCovered());
    }

    void aPressOfTheLastDisplayDoesNotCountForTheNext()
    {
        CoveredProgram program;
        program.pressEscape();
        program.windows.closeDisplayWindow();
        program.openDisplay();
        ProgramWindows::activate(program.display());
        program.pressEscape();
        QVERIFY(program.isCovered());
    }

    void nothingIsDrawnOnTheDisplay()
    {
        CoveredProgram program;
        const QImage before = program.display().grab().toImage();
        program.pressEscape();
        QCOMPARE(program.display().grab().toImage(), before);
    }

    void theMenuItemSaysHow()
    {
        CoveredProgram program;
        const QAction *item = program.commands.action(Command::toggleDisplayWindow);
        QVERIFY(item->toolTip().contains(QStringLiteral("Escape pressed twice")));
        const auto menus = program.operatorWindow.menuBar()->findChildren<QMenu *>();
        const auto output = std::find_if(menus.begin(), menus.end(), [&](const QMenu *menu) {
            return menu->actions().contains(item);
        });
        QVERIFY(output != menus.end());
        QVERIFY((*output)->toolTipsVisible());
    }
};

QUENARA_GUI_TEST(TestDisplayEscape)

} // namespace tst_display_escape

#include "tst_display_escape.moc"
