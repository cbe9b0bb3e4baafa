#include "EveryEdit.h"
#include "NotificationLog.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QRandomGenerator>
#include <QTest>

#include <functional>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_gestures {

namespace {

using Operation = std::function<void(World &)>;

Operation call(void (WorkspaceStore::*operation)())
{
    return [operation](World &world) { (world.store.*operation)(); };
}

Operation operationOf(const NamedEdit &edit)
{
    return [edit](World &world) { world.run(edit); };
}

void rename(World &world, const QString &name)
{
    world.store.updateProjectName(name);
}

/// Runs the edit. False if there was nothing for it to do.
bool takesAStep(World &world, const NamedEdit &edit)
{
    const qsizetype steps = world.store.undoStore().undoStack().size();
    world.run(edit);
    return world.store.undoStore().undoStack().size() > steps;
}

void dragTo(World &world, double x)
{
    world.store.updateSelectedElement([x](SlideElement &element) { element.frame.x = x; });
}

QStringList namesOf(const QList<ZelvoProject> &projects)
{
    QStringList names;
    for (const ZelvoProject &project : projects)
        names.append(project.name);
    return names;
}

QStringList undoNamesOf(const World &world)
{
    return namesOf(world.store.undoStore().undoStack());
}

QStringList redoNamesOf(const World &world)
{
    return namesOf(world.store.undoStore().redoStack());
}

/// A saved document, "Two" by name, that can be undone to "One" and redone to "Three" and has no
/// unsaved changes.
struct SavedWorld : World
{
    SavedWorld() : World(showOf({2, 1}))
    {
        for (const QString &name : {u"One"_s, u"Two"_s, u"Three"_s})
            store.updateProjectName(name);
        store.undo();
        panels.answer = fileUrl(u"show.quenara"_s);
        store.saveProject();
    }
};

} // namespace

class TestGestures : public QObject
{
    Q_OBJECT

private slots:
    void allUpdatesOfAGestureAreOneStep_data() { addUpdates(); }
    void allUpdatesOfAGestureAreOneStep()
    {
        QFETCH(Operation, update);
        SavedWorld world;
        const ZelvoProject before = world.store.project();
        const QList<ZelvoProject> history = world.store.undoStore().undoStack();
        const GestureID gesture = world.store.beginGesture();
        for (int i = 0; i < 5; ++i) {
            update(world);
            QVERIFY(world.store.isGestureOpen(gesture));
            QVERIFY(world.store.hasUnsavedChanges());
            QVERIFY(!world.store.canRedo());
            QCOMPARE(world.store.undoStore().undoStack(), history + QList{before});
        }
        world.store.endGesture(gesture);
        QVERIFY(!world.store.isGestureOpen(gesture));
        const ZelvoProject after = world.store.project();
        QVERIFY(after != before);

        world.store.undo();
        QCOMPARE(world.store.project(), before);
        world.store.redo();
        QCOMPARE(world.store.project(), after);
    }

    void anUpdateByItselfIsAStep_data() { addUpdates(); }
    void anUpdateByItselfIsAStep()
    {
        QFETCH(Operation, update);
        World world(showOf({2, 1}));
        update(world);
        world.store.endGesture(world.store.beginGesture());
        update(world);
        update(world);
        QCOMPARE(world.store.undoStore().undoStack().size(), 3);
    }

    void differentUpdatesOfAGestureAreOneStep()
    {
        World world(showOf({2, 1}));
        const ZelvoProject before = world.store.project();
        const GestureID gesture = world.store.beginGesture();
        for (const NamedEdit &edit : everyEdit()) {
            if (edit.joinsGesture)
                world.run(edit);
        }
        world.store.endGesture(gesture);
        QCOMPARE(world.store.undoStore().undoStack(), QList{before});
    }

    void aGestureWithoutAChangeLeavesEverythingAsItWas_data()
    {
        QTest::addColumn<Operation>("gesture");
        const auto row = [](const char *name, const Operation &gesture) {
            QTest::newRow(name) << gesture;
        };
        row("no update", [](World &) {});
        row("updates that change nothing", [](World &w) {
            rename(w, w.store.project().name);
            w.store.updateServiceItem(u"nowhere"_s, [](ServiceItem &item) { item.title.clear(); });
            w.store.updateSelectedSlide([](Slide &) {});
            w.store.updateSelectedElement([](SlideElement &) {});
        });
        row("there and back", [](World &w) {
            const double x = w.store.selectedElement()->frame.x;
            dragTo(w, x + 10);
            dragTo(w, x + 20);
            dragTo(w, x);
        });
        row("an update with nothing to work on", [](World &w) {
            w.store.selectElement(std::nullopt);
            const GestureID gesture = w.store.beginGesture();
            dragTo(w, 1);
            w.store.endGesture(gesture);
            w.store.selectElement(u"A1.lyric"_s);
        });
    }

    void aGestureWithoutAChangeLeavesEverythingAsItWas()
    {
        QFETCH(Operation, gesture);
        SavedWorld world;
        for (const bool isSaved : {true, false}) {
            if (!isSaved) {
                rename(world, u"Unsaved"_s);
                rename(world, u"Undone"_s);
                world.store.undo();
            }
            world.store.selectElement(u"A1.lyric"_s);
            const Snapshot before = snapshotOf(world.store);
            QCOMPARE(before.state.hasUnsavedChanges, !isSaved);
            QVERIFY(world.store.canRedo());
            const GestureID id = world.store.beginGesture();
            gesture(world);
            world.store.endGesture(id);
            QVERIFY(snapshotOf(world.store) == before);
        }
    }

    void theStateWithinAGestureIsTheOneThatItsEndWouldLeave()
    {
        SavedWorld world;
        const Snapshot before = snapshotOf(world.store);
        const double x = world.store.selectedElement()->frame.x;
        const GestureID gesture = world.store.beginGesture();
        dragTo(world, x + 10);
        QVERIFY(world.store.hasUnsavedChanges());
        QVERIFY(!world.store.canRedo());
        dragTo(world, x);
        QVERIFY(snapshotOf(world.store) == before);
        dragTo(world, x + 5);
        QVERIFY(!world.store.canRedo());
        const Snapshot last = snapshotOf(world.store);
        NotificationLog log(world.store);
        world.store.endGesture(gesture);
        QVERIFY(snapshotOf(world.store) == last);
        QCOMPARE(log.takeChangedCount(), 0);
    }

    void eachUpdateAnnouncesWhatChanges()
    {
        SavedWorld world;
        NotificationLog log(world.store);
        const GestureID gesture = world.store.beginGesture();
        QCOMPARE(log.takeChangedCount(), 0);
        dragTo(world, 1);
        QCOMPARE(log.takeProperties().join(u' '), u"project hasUnsavedChanges canRedo"_s);
        QCOMPARE(log.takeChangedCount(), 1);
        dragTo(world, 2);
        QCOMPARE(log.takeProperties(), QStringList{u"project"_s});
        QCOMPARE(log.takeChangedCount(), 1);
        world.store.cancelGesture(gesture);
        QCOMPARE(log.takeProperties().join(u' '), u"project hasUnsavedChanges canRedo"_s);
        QCOMPARE(log.takeChangedCount(), 1);
    }

    void aCancelledGestureLeavesNoTrace()
    {
        SavedWorld world;
        const Snapshot before = snapshotOf(world.store);
        const GestureID gesture = world.store.beginGesture();
        for (const NamedEdit &edit : everyEdit()) {
            if (edit.joinsGesture)
                world.run(edit);
        }
        QVERIFY(!(snapshotOf(world.store) == before));
        world.store.cancelGesture(gesture);
        QVERIFY(!world.store.isGestureOpen(gesture));
        QVERIFY(snapshotOf(world.store) == before);
        world.store.cancelGesture(gesture);
        QVERIFY(snapshotOf(world.store) == before);
    }

    void whatWasSentLiveMeanwhileStaysSo()
    {
        World world(showOf({2, 1}));
        const GestureID gesture = world.store.beginGesture();
        dragTo(world, 1);
        world.store.queueSlide(u"B1"_s);
        world.store.goLive();
        world.store.toggleBlackout();
        world.store.cancelGesture(gesture);
        QCOMPARE(world.store.project(), showOf({2, 1}));
        QCOMPARE(world.store.liveSlideID(), u"B1"_s);
        QCOMPARE(world.store.queuedSlideID(), u"B1"_s);
        QCOMPARE(world.store.outputMode(), OutputMode::blackout);
    }

    void whatEndsAGesture_data()
    {
        QTest::addColumn<Operation>("operation");
        const auto row = [](const char *name, const Operation &operation) {
            QTest::newRow(name) << operation;
        };
        row("another gesture", [](World &w) { w.store.beginGesture(); });
        row("an undo", call(&WorkspaceStore::undo));
        row("a redo", call(&WorkspaceStore::redo));
        row("a blank project", call(&WorkspaceStore::newBlankProject));
        row("a Sunday service", call(&WorkspaceStore::newSundayServiceProject));
        row("the demo", call(&WorkspaceStore::loadDemoProject));
        row("a document opened",
            [](World &w) { w.store.openProject(w.fileUrl(u"show.quenara"_s)); });
        row("a save", call(&WorkspaceStore::saveProject));
        row("a save elsewhere", call(&WorkspaceStore::saveProjectAs));
        row("another slide selected", [](World &w) { w.store.selectSlide(u"B1"_s, false); });
        row("the same slide selected anew", [](World &w) { w.store.selectSlide(u"A1"_s, false); });
        row("an unknown slide selected", [](World &w) { w.store.selectSlide(u"nowhere"_s, true); });
        row("another layer selected", [](World &w) { w.store.selectElement(u"A1.line"_s); });
        row("no layer selected", [](World &w) { w.store.selectElement(std::nullopt); });
        row("the next slide live", call(&WorkspaceStore::nextLive));
        row("the next slide queued", call(&WorkspaceStore::queueNext));
        row("an update that removes the selected slide", [](World &w) {
            w.store.updateServiceItem(u"A"_s, [](ServiceItem &item) { item.slides.removeFirst(); });
        });
        row("an update that removes the selected layer", [](World &w) {
            w.store.updateSelectedSlide([](Slide &slide) { slide.design.elements.removeFirst(); });
        });
        for (const NamedEdit &edit : everyEdit()) {
            SavedWorld world;
            if (!edit.joinsGesture && takesAStep(world, edit))
                row(edit.name, operationOf(edit));
        }
    }

    void whatEndsAGesture()
    {
        QFETCH(Operation, operation);
        SavedWorld world;
        const GestureID gesture = world.store.beginGesture();
        rename(world, u"Typed"_s);
        operation(world);
        QVERIFY(!world.store.isGestureOpen(gesture));

        // Now cancelling it does nothing, and each update is a step.
        const Snapshot before = snapshotOf(world.store);
        world.store.cancelGesture(gesture);
        QVERIFY(snapshotOf(world.store) == before);
        rename(world, u"Later"_s);
        QCOMPARE(world.store.undoStore().undoStack().last(), before.state.project);
    }

    void anotherEditIsAStepOfItsOwn_data()
    {
        QTest::addColumn<Operation>("edit");
        for (const NamedEdit &edit : everyEdit()) {
            SavedWorld world;
            if (!edit.joinsGesture && takesAStep(world, edit))
                QTest::newRow(edit.name) << operationOf(edit);
        }
    }

    void anotherEditIsAStepOfItsOwn()
    {
        QFETCH(Operation, edit);
        World world(showOf({2, 1}));
        world.store.selectSlide(u"A2"_s, true);
        world.store.selectElement(u"A2.line"_s);
        const GestureID gesture = world.store.beginGesture();
        dragTo(world, 1);
        dragTo(world, 2);
        const ZelvoProject dragged = world.store.project();
        const qsizetype steps = world.store.undoStore().undoStack().size();
        edit(world);
        QVERIFY(!world.store.isGestureOpen(gesture));
        if (world.store.undoStore().undoStack().size() > steps)
            world.store.undo();
        QCOMPARE(world.store.project(), dragged);
        world.store.undo();
        QCOMPARE(world.store.project(), showOf({2, 1}));
    }

    void whatLeavesAGestureOpen_data()
    {
        QTest::addColumn<Operation>("operation");
        const auto row = [](const char *name, const Operation &operation) {
            QTest::newRow(name) << operation;
        };
        row("the same layer selected",
            [](World &w) { w.store.selectElement(w.store.selectedElementID()); });
        row("a slide queued", [](World &w) { w.store.queueSlide(u"B1"_s); });
        row("the queued slide sent live", call(&WorkspaceStore::goLive));
        row("a blackout", call(&WorkspaceStore::toggleBlackout));
        row("the holding screen", call(&WorkspaceStore::toggleLogo));
        row("the start panel", call(&WorkspaceStore::showStartPanel));
        row("the song import", [](World &w) { w.store.setSongImportPresented(true); });
        row("an alert dismissed", call(&WorkspaceStore::dismissError));
        row("a file that cannot be opened",
            [](World &w) { w.store.openProject(w.fileUrl(u"missing.quenara"_s)); });
        row("an open panel that is cancelled", [](World &w) {
            w.panels.answer.reset();
            w.store.openProjectWithPanel();
        });
        row("a save panel that is cancelled", [](World &w) {
            w.panels.answer.reset();
            w.store.saveProjectAs();
        });
        row("a save that fails", [](World &w) {
            w.panels.answer = w.fileUrl(u"missing/show.quenara"_s);
            w.store.saveProjectAs();
        });
        row("an image panel that is cancelled", [](World &w) {
            w.panels.answer.reset();
            w.store.addImageLayerWithPanel();
        });
        row("a section that cannot move", [](World &w) { w.store.moveSelectedServiceItem(-1); });
        row("the end of another gesture", [](World &w) {
            w.store.endGesture(GestureID());
            w.store.cancelGesture(GestureID());
        });
    }

    void whatLeavesAGestureOpen()
    {
        QFETCH(Operation, operation);
        SavedWorld world;
        const GestureID gesture = world.store.beginGesture();
        rename(world, u"Typed"_s);
        operation(world);
        QVERIFY(world.store.isGestureOpen(gesture));
        rename(world, u"Typed on"_s);
        QCOMPARE(undoNamesOf(world), (QStringList{u"A Show"_s, u"One"_s, u"Two"_s}));
    }

    void aSelectionThatAnUpdateRepairsLeavesTheGestureOpen_data() { addUpdates(); }
    void aSelectionThatAnUpdateRepairsLeavesTheGestureOpen()
    {
        QFETCH(Operation, update);
        for (const auto &layer : {u"A1.lyric"_s, u"B1.lyric"_s}) {
            World world(showOf({1, 1}));
            world.store.nextLive();
            world.store.selectElement(layer);
            QCOMPARE(world.store.selectedServiceItemID(), u"A"_s);
            const GestureID gesture = world.store.beginGesture();
            rename(world, u"Typed"_s);
            QCOMPARE(world.store.selectedServiceItemID(), u"B"_s);
            QCOMPARE(world.store.selectedElementID(), u"B1.lyric"_s);
            update(world);
            QVERIFY(world.store.isGestureOpen(gesture));
            QCOMPARE(undoNamesOf(world), QStringList{u"A Show"_s});
        }
    }

    void undoWithinAGestureGoesBackToItsBeginning()
    {
        SavedWorld world;
        const GestureID gesture = world.store.beginGesture();
        rename(world, u"Typed"_s);
        rename(world, u"Typed on"_s);
        world.store.undo();
        QCOMPARE(world.store.project().name, u"Two"_s);
        QCOMPARE(redoNamesOf(world), QStringList{u"Typed on"_s});
        world.store.endGesture(gesture);
        QCOMPARE(redoNamesOf(world), QStringList{u"Typed on"_s});
    }

    void undoWithinAGestureWithoutAChangeGoesAStepBack()
    {
        SavedWorld world;
        world.store.beginGesture();
        world.store.undo();
        QCOMPARE(world.store.project().name, u"One"_s);
    }

    void redoWithinAGestureWithoutAChangeGoesAStepOn()
    {
        SavedWorld world;
        world.store.beginGesture();
        world.store.redo();
        QCOMPARE(world.store.project().name, u"Three"_s);
    }

    void aSaveWithinAGestureHoldsWhatIsTypedSoFar()
    {
        SavedWorld world;
        const GestureID gesture = world.store.beginGesture();
        rename(world, u"Typed"_s);
        world.store.saveProject();
        QVERIFY(!world.store.hasUnsavedChanges());
        rename(world, u"Typed on"_s);
        world.store.endGesture(gesture);
        QVERIFY(world.store.hasUnsavedChanges());
        QCOMPARE(undoNamesOf(world), (QStringList{u"A Show"_s, u"One"_s, u"Two"_s, u"Typed"_s}));
    }

    void gesturesDoNotNest()
    {
        World world(showOf({1}));
        const GestureID outer = world.store.beginGesture();
        rename(world, u"Outer"_s);
        const GestureID inner = world.store.beginGesture();
        QVERIFY(inner != outer);
        QVERIFY(!world.store.isGestureOpen(outer));
        rename(world, u"Inner"_s);
        world.store.cancelGesture(outer);
        world.store.endGesture(outer);
        QVERIFY(world.store.isGestureOpen(inner));
        rename(world, u"Inner still"_s);
        QCOMPARE(undoNamesOf(world), (QStringList{u"A Show"_s, u"Outer"_s}));
        world.store.cancelGesture(inner);
        QCOMPARE(world.store.project().name, u"Outer"_s);
        QCOMPARE(undoNamesOf(world), QStringList{u"A Show"_s});
        world.store.undo();
        QCOMPARE(world.store.project(), showOf({1}));
    }

    void noGestureIsOpenAtFirst()
    {
        World world(showOf({1}));
        QVERIFY(!world.store.isGestureOpen(GestureID()));
        QVERIFY(world.store.beginGesture() != GestureID());
    }

    void aGestureTakesOnePlaceOfAFullHistory()
    {
        World world(showOf({1}));
        for (int i = 1; i <= UndoRedoStore::limit; ++i)
            rename(world, QString::number(i));
        const QList<ZelvoProject> full = world.store.undoStore().undoStack();
        const ZelvoProject before = world.store.project();
        const GestureID gesture = world.store.beginGesture();
        for (int i = 0; i < 100; ++i)
            dragTo(world, i);
        QCOMPARE(world.store.undoStore().undoStack(), full.sliced(1) + QList{before});
        world.store.cancelGesture(gesture);
        QCOMPARE(world.store.undoStore().undoStack(), full);
    }

    void aSlotMayEndWhatItIsToldOf_data()
    {
        QTest::addColumn<Operation>("reaction");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QStringList>("undoNames");
        const auto row = [](const char *name, const Operation &reaction, const QString &nameAfter,
                            const QStringList &undoNames) {
            QTest::newRow(name) << reaction << nameAfter << undoNames;
        };
        row("undo", call(&WorkspaceStore::undo), u"Two"_s, {u"A Show"_s, u"One"_s});
        row("another step", [](World &w) { w.store.addServiceItem(ServiceItemType::song); },
            u"Typed"_s, {u"A Show"_s, u"One"_s, u"Two"_s, u"Typed"_s});
        row("another gesture", [](World &w) { w.store.beginGesture(); }, u"Typed"_s,
            {u"A Show"_s, u"One"_s, u"Two"_s});
        row("another document", call(&WorkspaceStore::newBlankProject), u"Untitled Quenara"_s, {});
    }

    void aSlotMayEndWhatItIsToldOf()
    {
        QFETCH(Operation, reaction);
        SavedWorld world;
        QObject context;
        bool hasReacted = false;
        connect(&world.store, &WorkspaceStore::projectChanged, &context, [&] {
            if (!std::exchange(hasReacted, true))
                reaction(world);
        });
        const GestureID gesture = world.store.beginGesture();
        rename(world, u"Typed"_s);
        QVERIFY(hasReacted);
        QVERIFY(!world.store.isGestureOpen(gesture));
        QTEST(world.store.project().name, "name");
        QTEST(undoNamesOf(world), "undoNames");
    }

    void aSlotMayCancelWhatItIsToldOf()
    {
        SavedWorld world;
        const Snapshot before = snapshotOf(world.store);
        const GestureID gesture = world.store.beginGesture();
        QObject context;
        connect(&world.store, &WorkspaceStore::projectChanged, &context,
                [&] { world.store.cancelGesture(gesture); });
        rename(world, u"Typed"_s);
        QVERIFY(snapshotOf(world.store) == before);
    }

    void anUpdateMayEndItsOwnGesture()
    {
        SavedWorld world;
        const GestureID gesture = world.store.beginGesture();
        rename(world, u"Typed"_s);
        world.store.updateSelectedSlide([&](Slide &slide) {
            world.store.cancelGesture(gesture);
            slide.title = u"New"_s;
        });
        QCOMPARE(undoNamesOf(world), (QStringList{u"A Show"_s, u"One"_s, u"Two"_s}));
        world.store.undo();
        QCOMPARE(world.store.project().name, u"Two"_s);
    }

    void anySequenceOfGesturesKeepsToTheRules_data()
    {
        QTest::addColumn<quint32>("seed");
        for (int seed = 1; seed <= 200; ++seed)
            QTest::addRow("seed %d", seed) << quint32(seed);
    }

    /// Compares the store with a plain model: the name of the project and the names in its history.
    void anySequenceOfGesturesKeepsToTheRules()
    {
        QFETCH(quint32, seed);
        QRandomGenerator random(seed);
        World world(showOf({1}));
        struct Past
        {
            QString name;
            QStringList undo;
            QStringList redo;
            bool isUnsaved;
        };
        Past now{u"A Show"_s, {}, {}, false};
        std::optional<Past> before;
        GestureID gesture{};
        const auto step = [&](const Past &from, const QString &name) {
            now = {name, from.undo + QStringList{from.name}, {}, true};
        };
        const auto travel = [&](bool isBack) {
            before.reset();
            QStringList &source = isBack ? now.undo : now.redo;
            if (source.isEmpty())
                return;
            (isBack ? now.redo : now.undo).append(now.name);
            now.name = source.takeLast();
            now.isUnsaved = true;
        };
        for (int i = 0; i < 60; ++i) {
            switch (random.bounded(9)) {
            case 0:
                gesture = world.store.beginGesture();
                before = now;
                break;
            case 1:
                world.store.endGesture(gesture);
                before.reset();
                break;
            case 2:
                world.store.cancelGesture(gesture);
                now = before.value_or(now);
                before.reset();
                break;
            case 3:
                world.store.undo();
                travel(true);
                break;
            case 4:
                world.store.redo();
                travel(false);
                break;
            default:
                const QString name = QString::number(random.bounded(3));
                rename(world, name);
                if (before && before->name == name) {
                    now = *before;
                } else {
                    step(before.value_or(now), name);
                }
            }
            QCOMPARE(world.store.isGestureOpen(gesture), before.has_value());
            QCOMPARE(world.store.project().name, now.name);
            QCOMPARE(world.store.hasUnsavedChanges(), now.isUnsaved);
            QCOMPARE(undoNamesOf(world), now.undo);
            QCOMPARE(redoNamesOf(world), now.redo);
        }
    }

private:
    static void addUpdates()
    {
        QTest::addColumn<Operation>("update");
        for (const NamedEdit &edit : everyEdit()) {
            if (edit.joinsGesture)
                QTest::newRow(edit.name) << operationOf(edit);
        }
    }
};

QUENARA_TEST(TestGestures)

} // namespace tst_gestures

#include "tst_gestures.moc"
