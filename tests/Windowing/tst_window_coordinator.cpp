#include "GuiTestSupport.h"
#include "InterfaceStyle.h"
#include "ProgramWindows.h"

#include <QPointer>
#include <QScreen>
#include <QSignalSpy>

using namespace quenara;
using namespace quenara::test;

namespace tst_window_coordinator {

namespace {

/// The windows that are painted, in the order of their first paintings.
class PaintOrder : public QObject
{
public:
    QList<QWidget *> windows;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        QWidget *window = qobject_cast<QWidget *>(watched)->window();
        if (event->type() == QEvent::Paint && !windows.contains(window))
            windows.append(window);
        return false;
    }
};

} // namespace

class TestWindowCoordinator : public GuiTest
{
    Q_OBJECT

private slots:
    void theDisplayCoversTheSecondScreenWhateverScreenTheOperatorIsOn()
    {
        WindowingWorld world;
        OperatorWindow operatorWindow(world.store, world.windows, world.guard, world.commands,
                                      world.menus, world.caches);
        operatorWindow.setScreen(QGuiApplication::screens().at(1));
        operatorWindow.show();
        world.openDisplay();
        QVERIFY(QTest::qWaitForWindowExposed(world.windows.displayWindow()));
        QCOMPARE(world.windows.displayWindow()->geometry(), QRect(1920, 0, 1920, 1080));
        QCOMPARE(world.windows.displayWindow()->screen(), QGuiApplication::screens().at(1));
        QVERIFY(world.windows.displayWindow()->windowFlags() & Qt::FramelessWindowHint);
        QCOMPARE(world.windows.displayWindow()->windowTitle(), QStringLiteral("Quenara Display"));
    }

    void aDisplayThatCoversNothingOfTheOperatorsIsNotLeftByEscape()
    {
        ProgramWindows program;
        program.openDisplay();
        ProgramWindows::activate(*program.windows.displayWindow());
        for (int i = 0; i < 3; ++i)
            ProgramWindows::press(*program.windows.displayWindow(), Qt::Key_Escape);
        QVERIFY(program.windows.isDisplayWindowOpen());
    }

    void theStageWindowIsAnOrdinaryWindowOfItsOwnSize()
    {
        WindowingWorld world;
        world.openStage();
        const OutputWindow &stage = *world.windows.stageWindow();
        QCOMPARE(stage.geometry(), QRect(180, 160, 1180, 720));
        QCOMPARE(stage.minimumSize(), QSize(900, 540));
        QCOMPARE(stage.windowTitle(), QStringLiteral("Quenara Stage"));
        QVERIFY(!(stage.windowFlags() & Qt::FramelessWindowHint));
    }

    void eachNewWindowIsToldOfOnce()
    {
        WindowingWorld world;
        QList<OutputWindow *> told;
        connect(&world.windows, &WindowCoordinator::windowMade, this,
                [&told](OutputWindow *window) { told.append(window); });
        world.openDisplay();
        QCOMPARE(told, QList{world.windows.displayWindow()});
        world.openStage();
        world.openDisplay();
        world.openStage();
        QCOMPARE(told, (QList{world.windows.displayWindow(), world.windows.stageWindow()}));
        world.windows.closeDisplayWindow();
        world.openDisplay();
        QCOMPARE(told.size(), 3);
        QCOMPARE(told.constLast(), world.windows.displayWindow());
    }

    void openingAnOpenWindowNeitherMakesMovesNorRestylesOne()
    {
        WindowingWorld world;
        world.openDisplay();
        world.openStage();
        const QPointer<OutputWindow> display = world.windows.displayWindow();
        const QPointer<OutputWindow> stage = world.windows.stageWindow();
        stage->setGeometry(300, 200, 1000, 600);
        world.windows.openDisplayWindow(world.store, AppAppearance::dark);
        world.windows.openStageWindow(world.store, AppAppearance::dark);
        QCOMPARE(world.windows.displayWindow(), display.data());
        QCOMPARE(world.windows.stageWindow(), stage.data());
        QCOMPARE(stage->geometry(), QRect(300, 200, 1000, 600));
        QCOMPARE(display->appearance(), AppAppearance::system);
        QCOMPARE(stage->appearance(), AppAppearance::system);
        QVERIFY(world.windows.isDisplayWindowOpen());
        QVERIFY(world.windows.isStageWindowOpen());
    }

    void closingAWindowThatIsNotOpenIsNoError()
    {
        WindowingWorld world;
        const QSignalSpy changed(&world.windows, &WindowCoordinator::isDisplayWindowOpenChanged);
        world.windows.closeDisplayWindow();
        world.windows.closeStageWindow();
        QVERIFY(!world.windows.isDisplayWindowOpen());
        QVERIFY(!world.windows.displayWindow());
        QVERIFY(!world.windows.stageWindow());
        QVERIFY(changed.isEmpty());
    }

    void closingTheStageWindowByHandDropsItsFlagAndTheNextToggleOpensAFreshOne()
    {
        WindowingWorld world;
        world.openStage();
        const QPointer<OutputWindow> first = world.windows.stageWindow();
        const QSignalSpy changed(&world.windows, &WindowCoordinator::isStageWindowOpenChanged);
        first->close();
        QVERIFY(!world.windows.isStageWindowOpen());
        QVERIFY(!world.windows.stageWindow());
        QCOMPARE(changed.size(), 1);
        QTRY_VERIFY(!first);
        world.openStage();
        QVERIFY(world.windows.isStageWindowOpen());
        QVERIFY(world.windows.stageWindow()->isVisible());
    }

    void closingTellsOnceAndReleasesTheWindow()
    {
        WindowingWorld world;
        world.openDisplay();
        const QPointer<OutputWindow> window = world.windows.displayWindow();
        const QSignalSpy changed(&world.windows, &WindowCoordinator::isDisplayWindowOpenChanged);
        world.windows.closeDisplayWindow();
        QCOMPARE(changed.size(), 1);
        QTRY_VERIFY(!window);
    }

    void anUnknownPreferenceIsNoExplicitAppearanceAnywhere()
    {
        WindowingWorld world;
        world.appearance.setRawValue(QStringLiteral("midnight"));
        world.openDisplay();
        world.openStage();
        world.windows.updateAppearance(world.appearance.appearance());
        QCOMPARE(world.windows.displayWindow()->appearance(), AppAppearance::system);
        QCOMPARE(world.windows.stageWindow()->appearance(), AppAppearance::system);
        QCOMPARE(QApplication::palette().color(QPalette::Window),
                 ZelvoTheme::light().appBackground);
    }

    void aChangeOfAppearanceReachesBothWindowsAndTheApplicationAtOnce()
    {
        WindowingWorld world;
        world.openDisplay();
        world.openStage();
        for (const AppAppearance appearance : {AppAppearance::dark, AppAppearance::light}) {
            world.windows.updateAppearance(appearance);
            const ZelvoTheme &theme = ZelvoTheme::current(*colorScheme(appearance));
            QCOMPARE(world.windows.displayWindow()->appearance(), appearance);
            QCOMPARE(world.windows.stageWindow()->appearance(), appearance);
            QCOMPARE(world.windows.stageWindow()->palette().color(QPalette::Window),
                     theme.appBackground);
            QCOMPARE(world.windows.displayWindow()->palette().color(QPalette::Window),
                     QColor(Qt::black));
            QCOMPARE(QApplication::palette().color(QPalette::Window), theme.appBackground);
            QCOMPARE(qApp->styleSheet(), interfaceStyleSheet(theme));
        }
    }

    void theStageMonitorIsPaintedInTheAppearanceOfItsWindow()
    {
        WindowingWorld world;
        world.openStage();
        OutputWindow &stage = *world.windows.stageWindow();
        const auto *badge = stage.findChild<QWidget *>(QStringLiteral("outputMode"));
        QVERIFY(badge);
        for (const AppAppearance appearance :
             {AppAppearance::dark, AppAppearance::light, AppAppearance::dark}) {
            world.windows.updateAppearance(appearance);
            const ZelvoTheme &theme = ZelvoTheme::current(*colorScheme(appearance));
            const QImage image = stage.grab().toImage();
            QCOMPARE(image.pixelColor(600, 3), theme.panelHeaderBackground);
            QCOMPARE(image.pixelColor(3, 700), theme.appBackground);
            QCOMPARE(image.pixelColor(badge->mapTo(&stage, QPoint(badge->width() / 2, 2))),
                     theme.live);
        }
    }

    void theAudiencesWindowIsRepaintedBeforeTheStageMonitor()
    {
        WindowingWorld world;
        world.openStage();
        world.openDisplay();
        QVERIFY(QTest::qWaitForWindowExposed(world.windows.displayWindow()));
        QVERIFY(QTest::qWaitForWindowExposed(world.windows.stageWindow()));
        QCoreApplication::processEvents();
        PaintOrder order;
        for (const OutputWindow *window :
             {world.windows.stageWindow(), world.windows.displayWindow()}) {
            for (QWidget *widget : window->findChildren<QWidget *>())
                widget->installEventFilter(&order);
        }
        world.store.nextLive();
        QTRY_COMPARE(order.windows.size(), 2);
        QCOMPARE(order.windows.constFirst(), world.windows.displayWindow());
    }

    void aClickGivesAnOutputWindowTheKeyboard()
    {
        WindowingWorld world;
        world.openDisplay();
        world.openStage();
        QTRY_COMPARE(QApplication::activeWindow(), world.windows.stageWindow());
        QTest::mouseClick(world.windows.displayWindow(), Qt::LeftButton);
        QTRY_COMPARE(QApplication::activeWindow(), world.windows.displayWindow());
    }

    void theWindowsGoWithTheCoordinator()
    {
        QPointer<OutputWindow> display;
        QPointer<OutputWindow> stage;
        {
            WindowingWorld world;
            world.openDisplay();
            world.openStage();
            display = world.windows.displayWindow();
            stage = world.windows.stageWindow();
            QVERIFY(display && stage);
        }
        QVERIFY(!display);
        QVERIFY(!stage);
    }

    void theAudienceSeesTheLiveSlideInTheDisplayWindow()
    {
        WindowingWorld world;
        world.openDisplay();
        OutputWindow &display = *world.windows.displayWindow();
        QVERIFY(QTest::qWaitForWindowExposed(&display));
        world.store.nextLive();
        const SlideRendererView live{.slide = world.store.slideWithID(world.store.liveSlideID())};
        QCOMPARE(largestDifference(display.grab().toImage(), rendered(live, {1920, 1080})), 0);
    }

    void theObserverCallsBackOnceAWindowIsAboutToClose()
    {
        QWidget window;
        int calls = 0;
        const WindowCloseObserver observer(&window, [&calls] { ++calls; });
        window.show();
        window.hide();
        QCOMPARE(calls, 0);
        window.close();
        QCOMPARE(calls, 1);
    }
};

QUENARA_GUI_TEST(TestWindowCoordinator)

} // namespace tst_window_coordinator

#include "tst_window_coordinator.moc"
