#include "GuiTestSupport.h"
#include "ProgramWindows.h"
#include "StageOutputView.h"

#include <QLineEdit>
#include <QScreen>

using namespace quenara;
using namespace quenara::test;

namespace tst_stage_full_screen {

namespace {

constexpr QRect ownPlace(300, 200, 1000, 600);

/// The program with the stage monitor in a window on the first screen, and a second one.
struct Program : ProgramWindows
{
    Program()
    {
        openStage();
        stage().setGeometry(ownPlace);
        activate(stage());
    }

    OutputWindow &stage() const { return *windows.stageWindow(); }
    bool isMagnified() const { return stage().findChild<StageOutputView *>()->isMagnified(); }
    QAction &command() const { return *commands.action(Command::toggleStageFullScreen); }

    static QScreen &otherScreen() { return *QGuiApplication::screens().at(1); }

    void moveToOtherScreen() const
    {
        stage().move(otherScreen().geometry().topLeft() + QPoint(100, 100));
    }
};

using Way = void (*)(Program &program);

void doubleClickOnTheWords(Program &program)
{
    QTest::mouseDClick(program.stage().findChild<QWidget *>(QStringLiteral("currentText")),
                       Qt::LeftButton);
}

void pressF11There(Program &program)
{
    Program::activate(program.stage());
    Program::press(program.stage(), Qt::Key_F11);
}

void pressF11InTheOperatorWindow(Program &program)
{
    Program::activate(program.operatorWindow);
    Program::press(program.operatorWindow, Qt::Key_F11);
}

void pressF11WhileATextIsTyped(Program &program)
{
    Program::activate(program.operatorWindow);
    auto *name = program.operatorWindow.findChild<QLineEdit *>(QStringLiteral("projectName"));
    name->setFocus();
    Program::press(program.operatorWindow, Qt::Key_F11);
    QVERIFY(name->hasFocus() || program.stage().isActiveWindow());
}

/// As a window manager does by a key of its own.
void haveTheDesktopFillTheScreen(Program &program)
{
    program.stage().setWindowState(program.stage().windowState() ^ Qt::WindowFullScreen);
}

void chooseTheMenuItem(Program &program)
{
    program.command().trigger();
}

void pressEscape(Program &program)
{
    Program::activate(program.stage());
    Program::press(program.stage(), Qt::Key_Escape);
}

void addWays()
{
    QTest::addColumn<Way>("way");
    QTest::newRow("a double click on the words") << Way(doubleClickOnTheWords);
    QTest::newRow("F11 in its window") << Way(pressF11There);
    QTest::newRow("F11 in the operator's window") << Way(pressF11InTheOperatorWindow);
    QTest::newRow("F11 while a text is typed") << Way(pressF11WhileATextIsTyped);
    QTest::newRow("the menu item") << Way(chooseTheMenuItem);
    QTest::newRow("the desktop") << Way(haveTheDesktopFillTheScreen);
}

} // namespace

class TestStageFullScreen : public GuiTest
{
    Q_OBJECT

private slots:
    void theMonitorFillsItsScreenMagnified_data() { addWays(); }

    void theMonitorFillsItsScreenMagnified()
    {
        QFETCH(Way, way);
        Program program;
        way(program);
        QVERIFY(program.stage().isFullScreen());
        QVERIFY(program.isMagnified());
        QTRY_COMPARE(program.stage().geometry(), QGuiApplication::primaryScreen()->geometry());
    }

    void theSameAgainOrEscapeBringsItsWindowBack_data()
    {
        addWays();
        QTest::newRow("Escape") << Way(pressEscape);
    }

    void theSameAgainOrEscapeBringsItsWindowBack()
    {
        QFETCH(Way, way);
        Program program;
        program.command().trigger();
        QTRY_COMPARE(program.stage().geometry(), QGuiApplication::primaryScreen()->geometry());
        way(program);
        QVERIFY(!program.stage().isFullScreen());
        QVERIFY(!program.isMagnified());
        QTRY_COMPARE(program.stage().geometry(), ownPlace);
    }

    void itFillsTheScreenThatItIsOn()
    {
        Program program;
        program.moveToOtherScreen();
        pressF11InTheOperatorWindow(program);
        QTRY_COMPARE(program.stage().geometry(), Program::otherScreen().geometry());
        QVERIFY(program.operatorWindow.isActiveWindow());
    }

    void overWhatTheOperatorSeesItHasTheKeyboard()
    {
        Program program;
        pressF11InTheOperatorWindow(program);
        QVERIFY(program.stage().isFullScreen());
        QTRY_VERIFY(program.stage().isActiveWindow());
    }

    void escapeInItsWindowDoesNothing()
    {
        Program program;
        pressEscape(program);
        QVERIFY(program.windows.isStageWindowOpen());
        QVERIFY(!program.stage().isFullScreen());
        QCOMPARE(program.stage().geometry(), ownPlace);
    }

    void theKeysOfTheShowWorkThere()
    {
        Program program;
        program.command().trigger();
        Program::activate(program.stage());
        const qsizetype live = program.live();
        Program::press(program.stage(), Qt::Key_Right);
        QCOMPARE(program.live(), live + 1);
        QVERIFY(program.stage().isFullScreen());
    }

    void anotherButtonAndASingleClickDoNothing()
    {
        Program program;
        auto *words = program.stage().findChild<QWidget *>(QStringLiteral("currentText"));
        QTest::mouseDClick(words, Qt::RightButton);
        QTest::mouseClick(words, Qt::LeftButton);
        QVERIFY(!program.stage().isFullScreen());
    }

    void theItemSaysWhatItWillDoAndIsDisabledWhileTheMonitorIsClosed()
    {
        Program program;
        QCOMPARE(program.command().text(), QStringLiteral("Fill Screen with Monitor"));
        program.command().trigger();
        QCOMPARE(program.command().text(), QStringLiteral("Show Monitor in a Window"));
        program.windows.closeStageWindow();
        QCOMPARE(program.command().text(), QStringLiteral("Fill Screen with Monitor"));
        QVERIFY(!program.command().isEnabled());
        program.openStage();
        QVERIFY(program.command().isEnabled());
        QVERIFY(!program.stage().isFullScreen());
    }

    void itNeverFillsTheScreenOfTheDisplay_data()
    {
        QTest::addColumn<Way>("way");
        QTest::newRow("a double click") << Way(doubleClickOnTheWords);
        QTest::newRow("F11") << Way(pressF11There);
        QTest::newRow("the menu item") << Way(chooseTheMenuItem);
        QTest::newRow("the desktop") << Way(haveTheDesktopFillTheScreen);
    }

    void itNeverFillsTheScreenOfTheDisplay()
    {
        QFETCH(Way, way);
        Program program;
        program.moveToOtherScreen();
        program.openDisplay();
        QTRY_VERIFY(!program.command().isEnabled());
        way(program);
        QVERIFY(!program.stage().isFullScreen());
        QVERIFY(!program.isMagnified());
        program.windows.closeDisplayWindow();
        QVERIFY(program.command().isEnabled());
        way(program);
        QVERIFY(program.stage().isFullScreen());
    }

    void aDisplayThatComesToItsScreenMakesItAWindowAgain()
    {
        Program program;
        program.moveToOtherScreen();
        program.command().trigger();
        QTRY_COMPARE(program.stage().geometry(), Program::otherScreen().geometry());
        program.openDisplay();
        QVERIFY(!program.stage().isFullScreen());
        QVERIFY(program.windows.displayWindow()->isVisible());
    }

    void aDisplayOnAnotherScreenLeavesItAsItIs()
    {
        Program program;
        program.command().trigger();
        QTRY_COMPARE(program.stage().geometry(), QGuiApplication::primaryScreen()->geometry());
        program.openDisplay();
        QVERIFY(program.stage().isFullScreen());
    }
};

QUENARA_GUI_TEST(TestStageFullScreen)

} // namespace tst_stage_full_screen

#include "tst_stage_full_screen.moc"
