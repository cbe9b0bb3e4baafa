#include "ProjectNormalizer.h"
#include "ProjectTemplates.h"
#include "Records.h"
#include "RundownEdits.h"
#include "Show.h"
#include "SongImportService.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QRegularExpression>
#include <QTest>

#include <functional>
#include <limits>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_rundown_edits {

namespace {

using Edit = std::function<void(WorkspaceStore &)>;

Edit edit(void (WorkspaceStore::*operation)())
{
    return [operation](WorkspaceStore &store) { (store.*operation)(); };
}

Edit moveSlide(qsizetype delta)
{
    return [delta](WorkspaceStore &store) { store.moveSelectedSlide(delta); };
}

Edit moveItem(qsizetype delta)
{
    return [delta](WorkspaceStore &store) { store.moveSelectedServiceItem(delta); };
}

Edit moveSlideTo(const QString &id, const QString &item, qsizetype position)
{
    return [=](WorkspaceStore &store) { store.moveSlide(id, item, position); };
}

Edit moveItemTo(const QString &id, qsizetype position)
{
    return [=](WorkspaceStore &store) { store.moveServiceItem(id, position); };
}

Edit stepSlide(int step)
{
    return [step](WorkspaceStore &store) { store.stepSelectedSlide(step); };
}

Edit rewriteText(const QString &text)
{
    return [text](WorkspaceStore &store) {
        store.updateSelectedSlide(
            [&](Slide &slide) { slide.design.elements[0].text->text = text; });
    };
}

const Edit addSong = [](WorkspaceStore &store) { store.addServiceItem(ServiceItemType::song); };
const Edit importSong = [](WorkspaceStore &store) {
    store.importSong(u"Song"_s, u"[Verse 1]\na\n\nTag:\nb"_s);
};
const Edit applyClosing = [](WorkspaceStore &store) {
    store.applyTemplateToSelectedSlide(u"closing"_s);
};
const Edit renameProject = [](WorkspaceStore &store) { store.updateProjectName(u"New"_s); };
const Edit renameItem = [](WorkspaceStore &store) {
    store.updateServiceItem(u"A"_s, [](ServiceItem &item) { item.title = u"New"_s; });
};
const Edit updateUnknownItem = [](WorkspaceStore &store) {
    store.updateServiceItem(u"nowhere"_s, [](ServiceItem &item) { item.title = u"New"_s; });
};

/// Items with their slides, such as "A: A1 A2 | B: B1".
QString rundownOf(const ZelvoProject &project)
{
    QStringList items;
    for (const ServiceItem &item : project.serviceItems) {
        QStringList words{item.id + u':'};
        for (const Slide &slide : item.slides)
            words.append(slide.id);
        items.append(words.join(u' '));
    }
    return items.join(u" | "_s);
}

/// A store's rundown with fresh identifiers shown as "new".
QString knownRundownOf(const WorkspaceStore &store)
{
    static const QRegularExpression fresh(u"[0-9A-F]{8}-[0-9A-F-]{27}"_s);
    return rundownOf(store.project()).replace(fresh, u"new"_s);
}

void goTo(WorkspaceStore &store, const QString &selected, const QString &live)
{
    store.selectSlide(live, true);
    store.goLive();
    store.selectSlide(selected, true);
}

QList<std::int64_t> orderIndexesOf(const ZelvoProject &project)
{
    QList<std::int64_t> indexes;
    for (const ServiceItem &item : project.serviceItems) {
        indexes.append(item.orderIndex);
        for (const Slide &slide : item.slides)
            indexes.append(slide.orderIndex);
    }
    return indexes;
}

} // namespace

class TestRundownEdits : public QObject
{
    Q_OBJECT

private slots:
    void theRundownAndTheSelectionFollowEachEdit_data()
    {
        QTest::addColumn<QString>("selected");
        QTest::addColumn<QString>("live");
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<QString>("rundown");
        QTest::addColumn<QString>("selectedAfter");
        QTest::addColumn<QString>("liveAfter");

        // The show is always "A: A1 A2 A3 | B: B1 | C: C1 C2".
        const auto row = [](const char *name, const char16_t *selected, const char16_t *live,
                            const Edit &edit, const char16_t *rundown,
                            const char16_t *selectedAfter, const char16_t *liveAfter) {
            const auto text = [](const char16_t *t) { return QString::fromUtf16(t); };
            QTest::newRow(name) << text(selected) << text(live) << edit << text(rundown)
                                << text(selectedAfter) << text(liveAfter);
        };
        const Edit deleteSlide = edit(&WorkspaceStore::deleteSelectedSlide);
        const Edit deleteItem = edit(&WorkspaceStore::deleteSelectedServiceItem);
        const Edit addSlide = edit(&WorkspaceStore::addSlide);
        const Edit duplicate = edit(&WorkspaceStore::duplicateSelectedSlide);

        row("an item is appended", u"A2", u"B1", addSong,
            u"A: A1 A2 A3 | B: B1 | C: C1 C2 | new: new", u"new", u"B1");
        row("a song is appended", u"A2", u"B1", importSong,
            u"A: A1 A2 A3 | B: B1 | C: C1 C2 | new: new new", u"new", u"B1");
        row("a slide is appended to the selected item", u"A1", u"B1", addSlide,
            u"A: A1 A2 A3 new | B: B1 | C: C1 C2", u"new", u"B1");
        row("a copy follows its slide", u"A1", u"A1", duplicate,
            u"A: A1 new A2 A3 | B: B1 | C: C1 C2", u"new", u"A1");
        row("the copy of a last slide ends its item", u"A3", u"C1", duplicate,
            u"A: A1 A2 A3 new | B: B1 | C: C1 C2", u"new", u"C1");
        row("a deleted slide gives way to its successor", u"A2", u"C1", deleteSlide,
            u"A: A1 A3 | B: B1 | C: C1 C2", u"A3", u"C1");
        row("a deleted live slide too", u"A2", u"A2", deleteSlide, u"A: A1 A3 | B: B1 | C: C1 C2",
            u"A3", u"A3");
        row("a deleted last slide gives way to its predecessor", u"A3", u"A3", deleteSlide,
            u"A: A1 A2 | B: B1 | C: C1 C2", u"A2", u"A2");
        row("a deleted only slide gives way to the first of the show", u"B1", u"B1", deleteSlide,
            u"A: A1 A2 A3 | B: | C: C1 C2", u"A1", u"A1");
        row("a deleted item gives way to the first", u"C2", u"A2", deleteItem,
            u"A: A1 A2 A3 | B: B1", u"A1", u"A2");
        row("a live slide goes with its item", u"C2", u"C1", deleteItem, u"A: A1 A2 A3 | B: B1",
            u"A1", u"A1");
        row("a deleted first item gives way to the next", u"A2", u"C1", deleteItem,
            u"B: B1 | C: C1 C2", u"B1", u"C1");
        row("a slide moves down", u"A1", u"A2", moveSlide(1), u"A: A2 A1 A3 | B: B1 | C: C1 C2",
            u"A1", u"A2");
        row("a slide moves up", u"A3", u"A2", moveSlide(-1), u"A: A1 A3 A2 | B: B1 | C: C1 C2",
            u"A3", u"A2");
        row("a slide changes places with a farther one", u"A1", u"C1", moveSlide(2),
            u"A: A3 A2 A1 | B: B1 | C: C1 C2", u"A1", u"C1");
        row("a slide never leaves its item downwards", u"A3", u"C1", moveSlide(1),
            u"A: A1 A2 A3 | B: B1 | C: C1 C2", u"A3", u"C1");
        row("a slide never leaves its item upwards", u"C1", u"C1", moveSlide(-1),
            u"A: A1 A2 A3 | B: B1 | C: C1 C2", u"C1", u"C1");
        row("an item moves down", u"A2", u"C1", moveItem(1), u"B: B1 | A: A1 A2 A3 | C: C1 C2",
            u"A2", u"C1");
        row("an item moves up", u"C2", u"A1", moveItem(-1), u"A: A1 A2 A3 | C: C1 C2 | B: B1",
            u"C2", u"A1");
        row("an item changes places with a farther one", u"A1", u"B1", moveItem(2),
            u"C: C1 C2 | B: B1 | A: A1 A2 A3", u"A1", u"B1");
        row("a slide is moved within its item", u"A1", u"A1", moveSlideTo(u"A1"_s, u"A"_s, 2),
            u"A: A2 A3 A1 | B: B1 | C: C1 C2", u"A1", u"A1");
        row("a slide is moved to another item", u"A2", u"A2", moveSlideTo(u"A2"_s, u"C"_s, 1),
            u"A: A1 A3 | B: B1 | C: C1 A2 C2", u"A2", u"A2");
        row("a slide is moved to an item's end", u"C2", u"A1", moveSlideTo(u"A3"_s, u"B"_s, 1),
            u"A: A1 A2 | B: B1 A3 | C: C1 C2", u"C2", u"A1");
        row("the only slide leaves its item", u"A1", u"B1", moveSlideTo(u"B1"_s, u"A"_s, 0),
            u"A: B1 A1 A2 A3 | B: | C: C1 C2", u"A1", u"B1");
        row("a slide steps down in its item", u"A1", u"A2", stepSlide(1),
            u"A: A2 A1 A3 | B: B1 | C: C1 C2", u"A1", u"A2");
        row("a slide steps down to the next item's beginning", u"A3", u"A3", stepSlide(1),
            u"A: A1 A2 | B: A3 B1 | C: C1 C2", u"A3", u"A3");
        row("a slide steps up to the end of the item before", u"C1", u"A1", stepSlide(-1),
            u"A: A1 A2 A3 | B: B1 C1 | C: C2", u"C1", u"A1");
        row("an item is moved to the end", u"A2", u"C1", moveItemTo(u"A"_s, 2),
            u"B: B1 | C: C1 C2 | A: A1 A2 A3", u"A2", u"C1");
        row("another item is moved than the selected one", u"A2", u"C1", moveItemTo(u"C"_s, 0),
            u"C: C1 C2 | A: A1 A2 A3 | B: B1", u"A2", u"C1");
        row("a text is rewritten", u"A2", u"A2", rewriteText(u"new"_s),
            u"A: A1 A2 A3 | B: B1 | C: C1 C2", u"A2", u"A2");
        row("a template is applied", u"A2", u"C1", applyClosing, u"A: A1 A2 A3 | B: B1 | C: C1 C2",
            u"A2", u"C1");
        row("the project is renamed", u"A2", u"C1", renameProject,
            u"A: A1 A2 A3 | B: B1 | C: C1 C2", u"A2", u"C1");
        row("an item is updated", u"C2", u"B1", renameItem, u"A: A1 A2 A3 | B: B1 | C: C1 C2",
            u"C2", u"B1");
    }

    void theRundownAndTheSelectionFollowEachEdit()
    {
        QFETCH(QString, selected);
        QFETCH(QString, live);
        QFETCH(Edit, edit);
        QFETCH(QString, selectedAfter);
        QFETCH(QString, liveAfter);
        World world(showOf({3, 1, 2}));
        WorkspaceStore &store = world.store;
        goTo(store, selected, live);
        store.toggleBlackout();
        const ZelvoProject before = store.project();

        edit(store);
        QTEST(knownRundownOf(store), "rundown");
        if (selectedAfter == u"new"_s) {
            QVERIFY(!slideIDs(before).contains(*store.selectedSlideID()));
        } else {
            QCOMPARE(store.selectedSlideID(), selectedAfter);
        }
        QCOMPARE(store.queuedSlideID(), store.selectedSlideID());
        QCOMPARE(store.liveSlideID(), liveAfter);
        QCOMPARE(store.outputMode(), OutputMode::blackout);
        QVERIFY(store.hasUnsavedChanges());
        const auto position = positionOf(store.project(), store.selectedSlideID());
        QVERIFY(position);
        QCOMPARE(store.selectedServiceItemID(), store.project().serviceItems.at(position->item).id);
        QCOMPARE(orderIndexesOf(store.project()),
                 orderIndexesOf(ProjectNormalizer::withMirroredOrder(store.project())));

        // One step of undo gives back the project, one of redo the edit.
        const ZelvoProject after = store.project();
        QCOMPARE(store.undoStore().undoStack().size(), 1);
        store.undo();
        QCOMPARE(store.project(), before);
        QVERIFY(!store.canUndo());
        QVERIFY(store.hasUnsavedChanges());
        store.redo();
        QCOMPARE(store.project(), after);
        QVERIFY(!store.canRedo());
    }

    void anEditOfNothingTakesNoStep_data()
    {
        QTest::addColumn<Edit>("edit");
        QTest::newRow("delete an item") << edit(&WorkspaceStore::deleteSelectedServiceItem);
        QTest::newRow("move an item") << moveItem(1);
        QTest::newRow("duplicate a slide") << edit(&WorkspaceStore::duplicateSelectedSlide);
        QTest::newRow("delete a slide") << edit(&WorkspaceStore::deleteSelectedSlide);
        QTest::newRow("rewrite a slide") << rewriteText(u"new"_s);
        QTest::newRow("apply a template") << applyClosing;
    }

    void anEditOfNothingTakesNoStep()
    {
        QFETCH(Edit, edit);
        World world(showOf({2, 1}));
        world.store.selectSlide(u"nowhere"_s, false);
        const WorkspaceState before = world.store.state();
        edit(world.store);
        QCOMPARE(world.store.state(), before);
        QVERIFY(!world.store.canUndo());
    }

    void aMoveToNowhereOrToTheOwnPlaceTakesNoStep_data()
    {
        QTest::addColumn<QString>("selected");
        QTest::addColumn<Edit>("edit");
        const auto row = [](const char *name, const Edit &edit, const QString &selected = u"B1"_s) {
            QTest::newRow(name) << selected << edit;
        };
        row("a slide to its own place", moveSlideTo(u"A2"_s, u"A"_s, 1));
        row("a slide beyond its item", moveSlideTo(u"A2"_s, u"A"_s, 3));
        row("a slide beyond another item", moveSlideTo(u"A2"_s, u"B"_s, 2));
        row("a slide before an item", moveSlideTo(u"A2"_s, u"B"_s, -1));
        row("a slide to an unknown item", moveSlideTo(u"A2"_s, u"nowhere"_s, 0));
        row("an unknown slide", moveSlideTo(u"nowhere"_s, u"A"_s, 0));
        row("an item to its own place", moveItemTo(u"B"_s, 1));
        row("an item before the rundown", moveItemTo(u"B"_s, -1));
        row("an item beyond the rundown", moveItemTo(u"B"_s, 3));
        row("an unknown item", moveItemTo(u"nowhere"_s, 0));
        row("the first slide a step up", stepSlide(-1), u"A1"_s);
        row("the last slide a step down", stepSlide(1), u"C2"_s);
        row("no selected slide a step down", stepSlide(1), u"nowhere"_s);
    }

    void aMoveToNowhereOrToTheOwnPlaceTakesNoStep()
    {
        QFETCH(QString, selected);
        QFETCH(Edit, edit);
        World world(showOf({3, 1, 2}));
        world.store.selectSlide(selected, true);
        const WorkspaceState before = world.store.state();
        edit(world.store);
        QCOMPARE(world.store.state(), before);
        QVERIFY(!world.store.canUndo());
    }

    void aSlideStepsIntoAnEmptyItemAndOutOfIt()
    {
        World world(showOf({1, 0, 1}));
        world.store.stepSelectedSlide(1);
        QCOMPARE(rundownOf(world.store.project()), u"A: | B: A1 | C: C1"_s);
        world.store.stepSelectedSlide(1);
        QCOMPARE(rundownOf(world.store.project()), u"A: | B: | C: A1 C1"_s);
        world.store.stepSelectedSlide(-1);
        QCOMPARE(rundownOf(world.store.project()), u"A: | B: A1 | C: C1"_s);
    }

    void theNextSlideIsTheOneAfterTheMovedLiveOne()
    {
        World world(showOf({3, 1}));
        world.store.moveSlide(u"A1"_s, u"A"_s, 1);
        QCOMPARE(world.store.liveSlideID(), u"A1"_s);
        QCOMPARE(world.store.nextSlide()->id, u"A3"_s);
    }

    void anItemBesideTheSelectedSlideStaysSelectedWhereThatIsAskedFor()
    {
        World world(showOf({1, 1, 1}));
        const auto move = [&world] { world.store.moveServiceItem(u"B"_s, 0); };
        world.store.selectServiceItem(u"B"_s);
        world.store.keepServiceItem(move);
        QCOMPARE(world.store.selectedServiceItemID(), u"B"_s);
        QCOMPARE(world.store.selectedSlideID(), u"A1"_s);
        // A slide takes the selection of its item along.
        world.store.selectSlide(u"A1"_s, true);
        world.store.keepServiceItem([&world] { world.store.moveSlide(u"A1"_s, u"C"_s, 0); });
        QCOMPARE(world.store.selectedServiceItemID(), u"C"_s);
        // What the edit removes is not selected.
        world.store.selectServiceItem(u"B"_s);
        world.store.keepServiceItem([&world] { world.store.deleteSelectedServiceItem(); });
        QVERIFY(world.store.selectedServiceItemID() != u"B"_s);
    }

    void movingASlideNeedsASelectedOne()
    {
        World world(showOf({0}));
        const WorkspaceState before = world.store.state();
        world.store.moveSelectedSlide(1);
        QCOMPARE(world.store.state(), before);
        QVERIFY(!world.store.canUndo());
    }

    void anItemBeyondTheRundownIsNoTarget_data()
    {
        QTest::addColumn<QString>("selected");
        QTest::addColumn<qsizetype>("delta");
        QTest::newRow("before the first") << u"A1"_s << qsizetype(-1);
        QTest::newRow("after the last") << u"C1"_s << qsizetype(1);
        QTest::newRow("far before the first") << u"B1"_s << qsizetype(-2);
        QTest::newRow("far after the last") << u"A1"_s << qsizetype(3);
        QTest::newRow("as far before as it goes")
            << u"C1"_s << std::numeric_limits<qsizetype>::min();
        QTest::newRow("as far after as it goes")
            << u"C1"_s << std::numeric_limits<qsizetype>::max();
    }

    void anItemBeyondTheRundownIsNoTarget()
    {
        QFETCH(QString, selected);
        QFETCH(qsizetype, delta);
        World world(showOf({3, 1, 2}));
        world.store.selectSlide(selected, true);
        const WorkspaceState before = world.store.state();
        world.store.moveSelectedServiceItem(delta);
        QCOMPARE(world.store.state(), before);
        QVERIFY(!world.store.canUndo());
    }

    void anEditThatChangesNothingIsStillAStep_data()
    {
        QTest::addColumn<Edit>("edit");
        QTest::newRow("a slide moved before its item") << moveSlide(-1);
        QTest::newRow("a slide moved beyond its item") << moveSlide(3);
        QTest::newRow("a slide moved as far as it goes")
            << moveSlide(std::numeric_limits<qsizetype>::max());
        QTest::newRow("an unknown item updated") << updateUnknownItem;
        QTest::newRow("the same name given")
            << Edit([](WorkspaceStore &store) { store.updateProjectName(store.project().name); });
    }

    void anEditThatChangesNothingIsStillAStep()
    {
        QFETCH(Edit, edit);
        World world(showOf({3, 1}));
        const ZelvoProject before = world.store.project();
        edit(world.store);
        QCOMPARE(world.store.project(), before);
        QVERIFY(world.store.hasUnsavedChanges());
        QCOMPARE(world.store.undoStore().undoStack(), QList{before});
    }

    void aNewItemHasATitleAndOneSlideByItsType_data()
    {
        QTest::addColumn<ServiceItemType>("type");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("templateID");
        QTest::newRow("welcome") << ServiceItemType::welcome << u"Welcome"_s << u"welcome"_s;
        QTest::newRow("song") << ServiceItemType::song << u"Song"_s << u"centerLyric"_s;
        QTest::newRow("scripture")
            << ServiceItemType::scripture << u"Scripture"_s << u"scriptureReading"_s;
        QTest::newRow("message") << ServiceItemType::message << u"Message"_s << u"sermonTitle"_s;
        QTest::newRow("announcement")
            << ServiceItemType::announcement << u"Announcement"_s << u"announcement"_s;
        QTest::newRow("closing") << ServiceItemType::closing << u"Closing"_s << u"closing"_s;
        QTest::newRow("custom") << ServiceItemType::custom << u"New Section"_s << u"minimalDark"_s;
    }

    void aNewItemHasATitleAndOneSlideByItsType()
    {
        QFETCH(ServiceItemType, type);
        QFETCH(QString, title);
        QFETCH(QString, templateID);
        World world(showOf({1}));
        world.store.addServiceItem(type);
        ServiceItem expected{
            .id = {},
            .title = title,
            .type = type,
            .orderIndex = 1,
            .subtitle = {},
            .slides = {ProjectTemplates::slide(u"New Slide"_s, QString(), 0, templateID)}};
        QCOMPARE(withoutIdentifiers(world.store.project().serviceItems.last()),
                 withoutIdentifiers(expected));
    }

    void anImportedSongIsSelectedWithItsFirstSlide()
    {
        World world(showOf({1}));
        world.store.setSongImportPresented(true);
        importSong(world.store);
        const ServiceItem &song = world.store.project().serviceItems.last();
        ServiceItem expected =
            SongImportService::serviceItem(u"Song"_s, u"[Verse 1]\na\n\nTag:\nb"_s, 1);
        QCOMPARE(withoutIdentifiers(song), withoutIdentifiers(expected));
        const QString first = song.slides.first().id;
        const QString layer = song.slides.first().design.elements.first().id;
        QCOMPARE(selectionOf(world.store.state()),
                 (Selection{song.id, first, first, u"A1"_s, layer}));
        QVERIFY(world.store.isSongImportPresented());
    }

    void aSongWithoutWordsLeavesNothingSelected()
    {
        World world(showOf({1}));
        world.store.importSong(u""_s, u" \n"_s);
        const ServiceItem &song = world.store.project().serviceItems.last();
        QCOMPARE(song.title, u"Imported Song"_s);
        QVERIFY(song.slides.isEmpty());
        QCOMPARE(world.store.liveSlideID(), u"A1"_s);
        const WorkspaceState &state = world.store.state();
        QVERIFY(!state.selectedSlideID && !state.queuedSlideID && !state.selectedServiceItemID);
        world.store.undo();
        QCOMPARE(world.store.project(), showOf({1}));
    }

    void aSongImportedIntoAnEmptyProjectIsNotLive()
    {
        World world(ProjectTemplates::blankProject(someTime()));
        importSong(world.store);
        QVERIFY(world.store.queuedSlideID());
        QVERIFY(!world.store.liveSlideID());
    }

    void aSlideAddedToAnEmptyRundownBringsItsOwnItem()
    {
        World world(ProjectTemplates::blankProject(someTime()));
        world.store.addSlide();
        QCOMPARE(world.store.project().serviceItems.size(), 1);
        const ServiceItem &item = world.store.project().serviceItems.first();
        QCOMPARE(item.title, u"New Section"_s);
        QCOMPARE(item.type, ServiceItemType::custom);
        QCOMPARE(item.slides.size(), 1);
        QCOMPARE(item.slides.first().title, u"New Slide"_s);
        const QString id = item.slides.first().id;
        QCOMPARE(selectionOf(world.store.state()), (Selection{item.id, id, id, {}, {}}));
        QCOMPARE(world.store.undoStore().undoStack().size(), 1);
    }

    void aSlideAddedWithoutASelectedItemGoesToTheFirst()
    {
        World world(showOf({1, 1}));
        world.store.selectSlide(u"nowhere"_s, false);
        QVERIFY(!world.store.selectedServiceItemID());
        world.store.addSlide();
        QCOMPARE(knownRundownOf(world.store), u"A: A1 new | B: B1"_s);
        QCOMPARE(world.store.selectedServiceItemID(), u"A"_s);
    }

    void aSlideAddedToAnUnknownItemBringsItsOwn()
    {
        WorkspaceState state;
        state.project = showOf({1});
        state.selectedServiceItemID = u"nowhere"_s;
        const auto edited = edits::addSlide(state);
        QVERIFY(edited);
        QCOMPARE(edited->project.serviceItems.size(), 2);
        QCOMPARE(edited->project.serviceItems.last().title, u"New Section"_s);
        QCOMPARE(edited->project.serviceItems.last().slides.size(), 1);
        QCOMPARE(edited->selectedServiceItemID, edited->project.serviceItems.last().id);
    }

    void aNewSlideHasTheDesignOfItsItemsType()
    {
        ZelvoProject project = showOf({2});
        project.serviceItems[0].type = ServiceItemType::message;
        World world(project);
        world.store.addSlide();
        QCOMPARE(withoutIdentifiers(world.store.project().serviceItems.first().slides.last()),
                 withoutIdentifiers(
                     ProjectTemplates::slide(u"New Slide"_s, QString(), 2, u"sermonTitle"_s)));
    }

    void aDuplicateDiffersInIdAndTitleOnly()
    {
        ZelvoProject project = showOf({1});
        project.serviceItems[0].slides[0].title = u"Welcome"_s;
        World world(project);
        world.store.duplicateSelectedSlide();
        const QList<Slide> &slides = world.store.project().serviceItems.first().slides;
        QCOMPARE(slides.size(), 2);
        QVERIFY(slides.at(1).id != slides.at(0).id);
        Slide expected = slides.at(0);
        expected.id = slides.at(1).id;
        expected.title = u"Welcome Copy"_s;
        expected.orderIndex = 1;
        QCOMPARE(slides.at(1), expected);
    }

    void deletingTheLiveSlideLeavesNoUnknownIdToRepair()
    {
        WorkspaceState state;
        state.project = showOf({2, 1});
        state.selectedSlideID = state.queuedSlideID = state.liveSlideID = u"A1"_s;
        const auto edited = edits::deleteSelectedSlide(state);
        QVERIFY(edited);
        QCOMPARE(edited->selectedSlideID, u"A2"_s);
        QCOMPARE(edited->queuedSlideID, u"A2"_s);
        QCOMPARE(edited->liveSlideID, u"A2"_s);
    }

    void deletingTheLastItemLeavesNothingSelected()
    {
        World world(showOf({2}));
        world.store.deleteSelectedServiceItem();
        QCOMPARE(rundownOf(world.store.project()), QString());
        const Selection left = selectionOf(world.store.state());
        QVERIFY(!left.item && !left.slide && !left.queued && !left.live);
    }

    void deletingAnItemSendsTheNewSelectionLiveWhenNothingWas()
    {
        World world(showOf({}));
        world.store.addServiceItem(ServiceItemType::song);
        const auto first = world.store.selectedSlideID();
        world.store.addServiceItem(ServiceItemType::message);
        QVERIFY(!world.store.liveSlideID());
        world.store.deleteSelectedServiceItem();
        QCOMPARE(world.store.selectedSlideID(), first);
        QCOMPARE(world.store.liveSlideID(), first);
    }

    void aRewrittenSlideTakesItsBodyFromItsDesign()
    {
        World world(showOf({1, 2}));
        world.store.selectSlide(u"B2"_s, false);
        rewriteText(u"  All creatures \n"_s)(world.store);
        const Slide slide = *world.store.slideWithID(u"B2"_s);
        QCOMPARE(slide.design.elements.first().text->text, u"  All creatures \n"_s);
        QCOMPARE(slide.body, u"All creatures"_s);
    }

    void anUpdateMayChangeEverythingOfAnItem()
    {
        World world(showOf({1, 2}));
        world.store.updateServiceItem(u"B"_s, [](ServiceItem &item) {
            item.title = u"New"_s;
            item.subtitle = u"Sub"_s;
            item.orderIndex = 77;
            item.slides.removeFirst();
        });
        ZelvoProject expected = showOf({1, 2});
        ServiceItem &item = expected.serviceItems[1];
        item.title = u"New"_s;
        item.subtitle = u"Sub"_s;
        item.slides.removeFirst();
        item.slides[0].orderIndex = 0;
        QCOMPARE(world.store.project(), expected);
    }

    void aTemplateIsAppliedToTheSlidesOwnContents()
    {
        ZelvoProject project = showOf({1});
        Slide &slide = project.serviceItems[0].slides[0];
        slide.footer = u"Foot"_s;
        slide.image = SlideMedia{"data:image/png;base64,AAAA", u"a.png"_s, u"image/png"_s};
        World world(project);
        world.store.applyTemplateToSelectedSlide(u"announcement"_s);
        const Slide after = world.store.project().serviceItems.first().slides.first();
        QCOMPARE(withoutIdentifiers(after.design),
                 withoutIdentifiers(ProjectTemplates::design(
                     u"announcement"_s, slide.title, slide.body, slide.footer, slide.image)));
        QCOMPARE(after.body, slide.body);
        QCOMPARE(after.design.elements.at(1).name, u"Title"_s);
        QCOMPARE(world.store.selectedElementID(), after.design.elements.at(1).id);
    }

    void onlyTheLastSixtyOfSixtyOneEditsAreUndone()
    {
        World world(showOf({1}));
        for (int i = 1; i <= 61; ++i)
            world.store.updateProjectName(QString::number(i));
        for (int i = 60; i >= 1; --i) {
            world.store.undo();
            QCOMPARE(world.store.project().name, QString::number(i));
        }
        QVERIFY(!world.store.canUndo());
        const WorkspaceState bottom = world.store.state();
        world.store.undo();
        QCOMPARE(world.store.state(), bottom);
    }

    void anEditAfterAnUndoLeavesNothingToRedo()
    {
        World world(showOf({1}));
        world.store.updateProjectName(u"one"_s);
        world.store.undo();
        QVERIFY(world.store.canRedo());
        world.store.updateProjectName(u"two"_s);
        QVERIFY(!world.store.canRedo());
        world.store.redo();
        QCOMPARE(world.store.project().name, u"two"_s);
    }

    void undoRepairsTheSelection()
    {
        World world(showOf({1, 1}));
        world.store.addSlide();
        world.store.goLive();
        world.store.undo();
        QCOMPARE(selectionOf(world.store.state()),
                 (Selection{u"A"_s, u"A1"_s, u"A1"_s, u"A1"_s, u"A1.lyric"_s}));
    }
};

QUENARA_TEST(TestRundownEdits)

} // namespace tst_rundown_edits

#include "tst_rundown_edits.moc"
