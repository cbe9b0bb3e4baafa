#include "GuiTestSupport.h"
#include "ProgramWindows.h"
#include "UnaskedKeyboard.h"

#include <QScreen>

using namespace quenara;
using namespace quenara::test;

namespace tst_screen_changes {

namespace {

/// The program on a screen that another one shows, too, and with a free one beside them.
struct Program : ProgramWindows
{
    static QScreen &freeScreen() { return *QGuiApplication::screens().at(2); }

    /// The desktop tells that something about the screens is another.
    static void changeScreens()
    {
        QScreen &screen = *QGuiApplication::primaryScreen();
        emit screen.geometryChanged(screen.geometry());
    }

    static void letScreensSettle() { QTest::qWait(2 * int(screensSettleIn.count())); }

    static void moveToFreeScreen(QWidget &window)
    {
        window.move(freeScreen().geometry().topLeft() + QPoint(40, 40));
    }

    /// Opens the display over what the operator sees, from where it goes to the free screen.
    void openDisplayThatFollows(const Caller &caller = Caller::current())
    {
        openDisplay();
        changeScreens();
        if (windows.displayWindow()->geometry() != freeScreen().geometry())
            fail(QStringLiteral("the display does not follow"), caller);
    }

    void toggleDisplay() { outputs.toggleDisplayWindow(); }
};

} // namespace

class TestScreenChanges : public GuiTest
{
    Q_OBJECT

private slots:
    void aDisplayThatHasFollowedDoesNotStayOverTheOperator()
    {
        Program program;
        program.openDisplayThatFollows();
        Program::moveToFreeScreen(program.operatorWindow);
        QVERIFY(program.windows.isDisplayWindowOpen());
        Program::letScreensSettle();
        QVERIFY(!program.windows.isDisplayWindowOpen());
        QVERIFY(program.windows.isDisplayWaiting());
    }

    void aDisplayThatWasTakenOffMeanwhileIsShownOnceTheScreensSettle()
    {
        Program program;
        program.openDisplayThatFollows();
        program.windows.displayWindow()->hide();
        Program::letScreensSettle();
        QVERIFY(program.windows.displayWindow()->isVisible());
        QCOMPARE(program.windows.displayWindow()->geometry(), Program::freeScreen().geometry());
    }

    void aDisplayThatWasTakenOffIsShownAtOnceByTheCommandForIt()
    {
        Program program;
        program.openDisplayThatFollows();
        program.windows.displayWindow()->hide();
        program.windows.openDisplayWindow(program.store, AppAppearance::dark);
        QVERIFY(program.windows.displayWindow()->isVisible());
        QVERIFY(!program.windows.displayWindow()->findChild<UnaskedKeyboard *>());
    }

    void aDisplayOpenedByCommandStaysWhereverTheOneBeforeHasFollowed_data()
    {
        using Close = void (*)(Program &program);
        QTest::addColumn<Close>("close");
        QTest::newRow("closed by command")
            << Close([](Program &program) { program.toggleDisplay(); });
        QTest::newRow("closed by hand")
            << Close([](Program &program) { program.windows.displayWindow()->close(); });
    }

    void aDisplayOpenedByCommandStaysWhereverTheOneBeforeHasFollowed()
    {
        using Close = void (*)(Program &program);
        QFETCH(Close, close);
        Program program;
        program.openDisplayThatFollows();
        close(program);
        QVERIFY(!program.windows.isDisplayWindowOpen());
        program.toggleDisplay();
        Program::letScreensSettle();
        QVERIFY(program.windows.isDisplayWindowOpen());
        QCOMPARE(program.windows.displayWindow()->geometry(),
                 program.operatorWindow.screen()->geometry());
    }

    void aStageMonitorOpenedByCommandStaysWhereverTheOneBeforeWasLost()
    {
        Program program;
        program.openStage();
        Program::moveToFreeScreen(*program.windows.stageWindow());
        Program::letScreensSettle();
        Program::moveToFreeScreen(program.operatorWindow);
        Program::changeScreens();
        QVERIFY(!program.windows.isStageWindowOpen());
        program.openStage();
        Program::changeScreens();
        QVERIFY(program.windows.isStageWindowOpen());
    }

    void aStageMonitorThatFilledItsScreenDoesSoWhenThatIsBackAndKeepsItsOwnPlace()
    {
        Program program;
        const QRect operatorPlace = program.operatorWindow.geometry();
        program.openStage();
        Program::moveToFreeScreen(*program.windows.stageWindow());
        Program::letScreensSettle();
        const QRect ownPlace = program.windows.stageWindow()->geometry();
        program.outputs.toggleStageFullScreen();
        QTRY_COMPARE(program.windows.stageWindow()->geometry(), Program::freeScreen().geometry());
        Program::letScreensSettle();
        Program::moveToFreeScreen(program.operatorWindow);
        Program::changeScreens();
        QVERIFY(!program.windows.isStageWindowOpen());
        program.operatorWindow.setGeometry(operatorPlace);
        Program::changeScreens();
        QTRY_VERIFY(program.windows.isStageWindowOpen());
        QVERIFY(program.windows.isStageFullScreen());
        QTRY_COMPARE(program.windows.stageWindow()->geometry(), Program::freeScreen().geometry());
        program.outputs.toggleStageFullScreen();
        QTRY_COMPARE(program.windows.stageWindow()->geometry(), ownPlace);
    }
};

QUENARA_GUI_TEST(TestScreenChanges)

} // namespace tst_screen_changes

#include "tst_screen_changes.moc"
