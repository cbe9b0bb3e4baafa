#include "ProjectTemplates.h"
#include "Show.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QTest>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_transport {

namespace {

using Operation = void (WorkspaceStore::*)();

/// A world with the slides A1, A2, B1, D1 and D2.
struct Show : World
{
    Show() : World(showOf({2, 1, 0, 2})) {}

    Selection selection() const { return selectionOf(store.state()); }
};

/// Sends \a id live with everything on it.
void goTo(WorkspaceStore &store, const QString &id)
{
    store.selectSlide(id, true);
    store.goLive();
}

} // namespace

class TestTransport : public QObject
{
    Q_OBJECT

private slots:
    void aFreshWorkspaceStartsOnItsFirstSlide()
    {
        ZelvoProject project = showOf({0, 2});
        project.serviceItems[1].orderIndex = 9;
        const World world(project);
        const WorkspaceState &state = world.store.state();
        QCOMPARE(selectionOf(state), (Selection{u"B"_s, u"B1"_s, u"B1"_s, u"B1"_s, u"B1.lyric"_s}));
        QCOMPARE(state.project, showOf({0, 2}));
        QCOMPARE(state.outputMode, OutputMode::live);
        QVERIFY(!state.currentFileURL);
        QVERIFY(!state.hasUnsavedChanges);
        QVERIFY(state.recentProjects.isEmpty());
        QVERIFY(!state.isStartPanelPresented);
        QVERIFY(!state.isSongImportPresented);
        QVERIFY(!state.errorMessage);
        QVERIFY(!world.store.canUndo());
        QVERIFY(!world.store.canRedo());
    }

    void theFirstLayerWithATextIsSelectedAtFirst()
    {
        ZelvoProject project = showOf({1});
        project.serviceItems[0].slides[0].design.elements.move(0, 1);
        QCOMPARE(World(project).store.selectedElementID(), u"A1.lyric"_s);
        project.serviceItems[0].slides[0].design.elements.removeLast();
        QVERIFY(!World(project).store.selectedElementID());
    }

    void anEmptyProjectHasNothingToShow()
    {
        World world(ProjectTemplates::blankProject(someTime()));
        WorkspaceStore &store = world.store;
        QCOMPARE(selectionOf(store.state()), Selection());
        QVERIFY(!store.nextSlide());
        QVERIFY(!store.selectedElement());
        QVERIFY(store.flattenedSlides().isEmpty());
    }

    void anEmptyProjectTakesNoStep_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::newRow("next live") << &WorkspaceStore::nextLive;
        QTest::newRow("previous live") << &WorkspaceStore::previousLive;
        QTest::newRow("queue next") << &WorkspaceStore::queueNext;
        QTest::newRow("queue previous") << &WorkspaceStore::queuePrevious;
    }

    void anEmptyProjectTakesNoStep()
    {
        QFETCH(Operation, operation);
        World world(showOf({0, 0}));
        world.store.toggleLogo();
        const WorkspaceState before = world.store.state();
        (world.store.*operation)();
        QCOMPARE(world.store.state(), before);
    }

    void goingLiveInAnEmptyProjectOnlyEndsTheHoldingScreen()
    {
        World world(showOf({}));
        world.store.toggleBlackout();
        world.store.goLive();
        QCOMPARE(selectionOf(world.store.state()), Selection());
        QCOMPARE(world.store.outputMode(), OutputMode::live);
    }

    void selectingASlideTouchesNeitherLiveNorTheOutputMode()
    {
        Show show;
        show.store.toggleBlackout();
        show.store.selectSlide(u"B1"_s, false);
        QCOMPARE(show.selection(), (Selection{u"B"_s, u"B1"_s, u"A1"_s, u"A1"_s, {}}));
        show.store.selectSlide(u"D2"_s, true);
        QCOMPARE(show.selection(), (Selection{u"D"_s, u"D2"_s, u"D2"_s, u"A1"_s, {}}));
        QCOMPARE(show.store.outputMode(), OutputMode::blackout);
        QVERIFY(!show.store.hasUnsavedChanges());
    }

    void anUnknownSlideIsSelectedUntilTheNextEditRepairsIt()
    {
        Show show;
        show.store.selectSlide(u"nowhere"_s, false);
        QCOMPARE(show.selection(), (Selection{{}, u"nowhere"_s, u"A1"_s, u"A1"_s, {}}));
        QVERIFY(!show.store.slideWithID(u"nowhere"_s));
        show.store.updateProjectName(u"Renamed"_s);
        QCOMPARE(show.selection(), (Selection{u"A"_s, u"A1"_s, u"A1"_s, u"A1"_s, {}}));
    }

    void queueingASlideChangesTheQueueAlone()
    {
        Show show;
        show.store.queueSlide(u"D1"_s);
        QCOMPARE(show.selection(), (Selection{u"A"_s, u"A1"_s, u"D1"_s, u"A1"_s, u"A1.lyric"_s}));
        show.store.queueSlide(std::nullopt);
        QCOMPARE(show.selection(), (Selection{u"A"_s, u"A1"_s, {}, u"A1"_s, u"A1.lyric"_s}));
    }

    void selectingAnItemChangesTheItemAlone()
    {
        Show show;
        show.store.selectServiceItem(u"D"_s);
        QCOMPARE(show.selection(), (Selection{u"D"_s, u"A1"_s, u"A1"_s, u"A1"_s, u"A1.lyric"_s}));
        show.store.selectServiceItem(u"C"_s);
        QCOMPARE(show.selection(), (Selection{u"C"_s, u"A1"_s, u"A1"_s, u"A1"_s, u"A1.lyric"_s}));
        QVERIFY(!show.store.hasUnsavedChanges());
        QVERIFY(!show.store.canUndo());
    }

    void selectingALayerChangesTheLayerAlone()
    {
        Show show;
        show.store.selectElement(u"A1.line"_s);
        QCOMPARE(show.selection(), (Selection{u"A"_s, u"A1"_s, u"A1"_s, u"A1"_s, u"A1.line"_s}));
        QCOMPARE(show.store.selectedElement()->name, u"Amber Accent"_s);
        show.store.selectElement(u"B1.line"_s);
        QVERIFY(!show.store.selectedElement());
        show.store.selectElement(std::nullopt);
        QVERIFY(!show.store.selectedElement());
        show.store.selectElement(u"A1.line"_s);
        show.store.selectSlide(u"nowhere"_s, false);
        show.store.selectElement(u"A1.line"_s);
        QVERIFY(!show.store.selectedElement());
    }

    void goingLiveSendsTheQueuedSlideAndKeepsTheSelection()
    {
        Show show;
        show.store.queueSlide(u"D1"_s);
        show.store.toggleLogo();
        show.store.goLive();
        QCOMPARE(show.selection(), (Selection{u"A"_s, u"A1"_s, u"D1"_s, u"D1"_s, u"A1.lyric"_s}));
        QCOMPARE(show.store.outputMode(), OutputMode::live);
    }

    void goingLiveWithAnEmptyQueueTakesTheSelectedSlide()
    {
        Show show;
        show.store.selectSlide(u"B1"_s, false);
        show.store.queueSlide(std::nullopt);
        show.store.goLive();
        QCOMPARE(show.selection(), (Selection{u"B"_s, u"B1"_s, u"B1"_s, u"B1"_s, {}}));
    }

    void liveStepsThroughTheWholeShowAndFallsBackToItsFirstSlide_data()
    {
        QTest::addColumn<QString>("live");
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const char16_t *live, Operation operation,
                            const char16_t *expected) {
            QTest::newRow(name) << QString::fromUtf16(live) << operation
                                << QString::fromUtf16(expected);
        };
        row("on within an item", u"A1", &WorkspaceStore::nextLive, u"A2");
        row("on into the next item", u"A2", &WorkspaceStore::nextLive, u"B1");
        row("on past an item without slides", u"B1", &WorkspaceStore::nextLive, u"D1");
        row("on from the last slide", u"D2", &WorkspaceStore::nextLive, u"A1");
        row("on from an unknown slide", u"nowhere", &WorkspaceStore::nextLive, u"A1");
        row("back within an item", u"D2", &WorkspaceStore::previousLive, u"D1");
        row("back past an item without slides", u"D1", &WorkspaceStore::previousLive, u"B1");
        row("back from the first slide", u"A1", &WorkspaceStore::previousLive, u"A1");
        row("back from an unknown slide", u"nowhere", &WorkspaceStore::previousLive, u"A1");
    }

    void liveStepsThroughTheWholeShowAndFallsBackToItsFirstSlide()
    {
        QFETCH(QString, live);
        QFETCH(Operation, operation);
        QFETCH(QString, expected);
        Show show;
        goTo(show.store, live);
        show.store.selectSlide(u"B1"_s, true);
        show.store.selectElement(u"B1.line"_s);
        show.store.toggleBlackout();
        (show.store.*operation)();
        QCOMPARE(show.selection(), (Selection{u"B"_s, expected, expected, expected, u"B1.line"_s}));
        QCOMPARE(show.store.outputMode(), OutputMode::live);
    }

    void withNothingLiveTheStepStartsFromTheSelectedSlide()
    {
        // A show that starts empty has nothing live when slides are added.
        World world(showOf({}));
        world.store.addServiceItem(ServiceItemType::song);
        world.store.addSlide();
        world.store.addSlide();
        const QStringList ids = slideIDs(world.store.project());
        QVERIFY(!world.store.liveSlideID());
        QCOMPARE(world.store.nextSlide()->id, ids.at(0));
        world.store.selectSlide(ids.at(1), false);
        world.store.nextLive();
        QCOMPARE(world.store.liveSlideID(), ids.at(2));
    }

    void theNextSlideFollowsTheLiveOne()
    {
        Show show;
        QCOMPARE(show.store.nextSlide()->id, u"A2"_s);
        goTo(show.store, u"B1"_s);
        QCOMPARE(show.store.nextSlide()->id, u"D1"_s);
        goTo(show.store, u"D2"_s);
        QVERIFY(!show.store.nextSlide());
        goTo(show.store, u"nowhere"_s);
        QCOMPARE(show.store.nextSlide()->id, u"A1"_s);
    }

    void theSlidesAheadAreThoseThatTheNextCommandSends_data()
    {
        QTest::addColumn<QString>("live");
        QTest::addColumn<QString>("queued");
        QTest::newRow("in the midst of the show") << u"B1"_s << u"D2"_s;
        QTest::newRow("the first slide live") << u"A1"_s << u"B1"_s;
        QTest::newRow("the last slide live, after which the first one comes") << u"D2"_s << u"D2"_s;
        QTest::newRow("no slide live") << u"nowhere"_s << u"D1"_s;
    }

    void theSlidesAheadAreThoseThatTheNextCommandSends()
    {
        QFETCH(QString, live);
        QFETCH(QString, queued);
        QStringList ahead;
        QStringList sent;
        for (const auto send :
             {&WorkspaceStore::nextLive, &WorkspaceStore::goLive, &WorkspaceStore::previousLive}) {
            Show show;
            goTo(show.store, live);
            show.store.queueSlide(queued);
            ahead.clear();
            for (const Slide &slide : show.store.slidesAhead())
                ahead.append(slide.id);
            (show.store.*send)();
            sent.append(*show.store.liveSlideID());
        }
        QCOMPARE(ahead, sent);
    }

    void nothingIsAheadInAnEmptyShow()
    {
        World world(showOf({}));
        QVERIFY(world.store.slidesAhead().isEmpty());
    }

    void slidesAreFoundWhereverAnEditHasMovedThem()
    {
        Show show;
        goTo(show.store, u"A2"_s);
        QCOMPARE(show.store.nextSlide()->id, u"B1"_s);
        show.store.moveSelectedSlide(-1);
        QCOMPARE(show.store.nextSlide()->id, u"A1"_s);
        QCOMPARE(show.store.slideWithID(u"A2"_s)->id, u"A2"_s);
        show.store.deleteSelectedSlide();
        QVERIFY(!show.store.slideWithID(u"A2"_s));
        show.store.undo();
        QCOMPARE(show.store.slideWithID(u"A2"_s)->id, u"A2"_s);
    }

    void theQueueStepsThroughTheShowAndStopsAtItsEnds_data()
    {
        QTest::addColumn<QString>("queued");
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const char16_t *queued, Operation operation,
                            const char16_t *expected) {
            QTest::newRow(name) << QString::fromUtf16(queued) << operation
                                << QString::fromUtf16(expected);
        };
        row("on into the next item", u"A2", &WorkspaceStore::queueNext, u"B1");
        row("on past an item without slides", u"B1", &WorkspaceStore::queueNext, u"D1");
        row("on from the last slide", u"D2", &WorkspaceStore::queueNext, u"D2");
        row("on from an unknown slide", u"nowhere", &WorkspaceStore::queueNext, u"nowhere");
        row("back past an item without slides", u"D1", &WorkspaceStore::queuePrevious, u"B1");
        row("back from the first slide", u"A1", &WorkspaceStore::queuePrevious, u"A1");
    }

    void theQueueStepsThroughTheShowAndStopsAtItsEnds()
    {
        QFETCH(QString, queued);
        QFETCH(Operation, operation);
        QFETCH(QString, expected);
        Show show;
        show.store.toggleLogo();
        show.store.queueSlide(queued);
        const WorkspaceState before = show.store.state();
        (show.store.*operation)();
        if (expected == queued) {
            QCOMPARE(show.store.state(), before);
        } else {
            QCOMPARE(show.selection(),
                     (Selection{expected.first(1), expected, expected, u"A1"_s, {}}));
        }
        QCOMPARE(show.store.outputMode(), OutputMode::logo);
    }

    void anEmptyQueueStepsFromTheLiveSlide()
    {
        Show show;
        goTo(show.store, u"A2"_s);
        show.store.selectSlide(u"D2"_s, false);
        show.store.queueSlide(std::nullopt);
        show.store.queueNext();
        QCOMPARE(show.selection(), (Selection{u"B"_s, u"B1"_s, u"B1"_s, u"A2"_s, {}}));
    }

    void outputModesToggle_data()
    {
        QTest::addColumn<QList<Operation>>("operations");
        QTest::addColumn<OutputMode>("expected");
        const Operation blackout = &WorkspaceStore::toggleBlackout;
        const Operation logo = &WorkspaceStore::toggleLogo;
        const Operation live = &WorkspaceStore::goLive;
        const auto row = [](const char *name, const QList<Operation> &operations,
                            OutputMode expected) { QTest::newRow(name) << operations << expected; };
        row("blackout", {blackout}, OutputMode::blackout);
        row("blackout twice", {blackout, blackout}, OutputMode::live);
        row("logo", {logo}, OutputMode::logo);
        row("logo twice", {logo, logo}, OutputMode::live);
        row("blackout, then logo", {blackout, logo}, OutputMode::logo);
        row("blackout, then logo twice", {blackout, logo, logo}, OutputMode::live);
        row("logo, then blackout", {logo, blackout}, OutputMode::blackout);
        row("blackout, then live", {blackout, live}, OutputMode::live);
        row("logo, then live", {logo, live}, OutputMode::live);
    }

    void outputModesToggle()
    {
        QFETCH(QList<Operation>, operations);
        Show show;
        goTo(show.store, u"B1"_s);
        for (const Operation operation : operations)
            (show.store.*operation)();
        QTEST(show.store.outputMode(), "expected");
        QCOMPARE(show.store.liveSlideID(), u"B1"_s);
    }

    void aSlideIsFoundByItsId()
    {
        Show show;
        QCOMPARE(show.store.slideWithID(u"D1"_s)->title, u"Title of D1"_s);
        QVERIFY(!show.store.slideWithID(std::nullopt));
        QVERIFY(!show.store.slideWithID(u"nowhere"_s));
        QCOMPARE(show.store.flattenedSlides(), flattenedSlides(show.store.project()));
    }
};

QUENARA_TEST(TestTransport)

} // namespace tst_transport

#include "tst_transport.moc"
