#include "NotificationLog.h"
#include "ProjectNormalizer.h"
#include "Show.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QTest>

#include <functional>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_store_notifications {

namespace {

using Operation = std::function<void(World &)>;

/// The values of everything published, by property.
QHash<QString, bool> differences(const WorkspaceStore &store, const WorkspaceState &before)
{
    QHash<QString, bool> differs;
    forEachField<WorkspaceState>([&](const auto &f) {
        const auto name = QString::fromLatin1(f.name.data(), qsizetype(f.name.size()));
        differs.insert(name, store.state().*f.member != before.*f.member);
    });
    return differs;
}

Operation call(void (WorkspaceStore::*operation)())
{
    return [operation](World &world) { (world.store.*operation)(); };
}

} // namespace

class TestStoreNotifications : public QObject
{
    Q_OBJECT

private slots:
    void everyPublishedFieldIsAPropertyThatNotifies()
    {
        QStringList properties;
        for (const auto &[property, signal] : notifications()) {
            const int index = WorkspaceStore::staticMetaObject.indexOfProperty(property.toLatin1());
            QVERIFY2(index >= 0, qPrintable(property));
            const QMetaMethod notify =
                WorkspaceStore::staticMetaObject.property(index).notifySignal();
            QVERIFY2(notify == QMetaMethod::fromSignal(signal), qPrintable(property));
            properties.append(property);
        }
        forEachField<WorkspaceState>([&](const auto &f) {
            const auto name = QString::fromLatin1(f.name.data(), qsizetype(f.name.size()));
            QVERIFY2(properties.contains(name), qPrintable(name));
        });
        QCOMPARE(properties.size(), fieldCount<WorkspaceState>);
    }

    void everyPropertyReadsThePublishedValue()
    {
        const World world(showOf({2}));
        const WorkspaceStore &store = world.store;
        QCOMPARE(store.property("project").value<ZelvoProject>(), store.project());
        QCOMPARE(store.property("selectedSlideID").value<std::optional<QString>>(), u"A1"_s);
        QCOMPARE(store.property("outputMode").value<OutputMode>(), OutputMode::live);
        QCOMPARE(store.property("hasUnsavedChanges"), QVariant(false));
        for (const Notification &notification : notifications()) {
            QVERIFY2(store.property(notification.property.toLatin1()).isValid(),
                     qPrintable(notification.property));
        }
    }

    void eachOperationAnnouncesJustWhatChanges_data() { addOperations(); }
    void eachOperationAnnouncesJustWhatChanges()
    {
        QFETCH(Operation, prepare);
        QFETCH(Operation, operation);
        QFETCH(QString, expected);
        World world(showOf({2, 1}));
        prepare(world);
        const WorkspaceState before = world.store.state();
        NotificationLog log(world.store);
        operation(world);
        const QStringList announced = log.takeProperties();
        QCOMPARE(announced.join(u' '), expected);
        QCOMPARE(log.takeChangedCount(), announced.isEmpty() ? 0 : 1);
        const auto differs = differences(world.store, before);
        for (auto it = differs.cbegin(); it != differs.cend(); ++it)
            QVERIFY2(announced.contains(it.key()) == it.value(), qPrintable(it.key()));
    }

    void everySlotSeesTheStateAfterTheOperation_data() { addOperations(); }
    void everySlotSeesTheStateAfterTheOperation()
    {
        QFETCH(Operation, prepare);
        QFETCH(Operation, operation);
        QFETCH(QString, expected);
        World world(showOf({2, 1}));
        prepare(world);
        QList<WorkspaceState> seen;
        const NotificationLog log(world.store,
                                  [&](const QString &) { seen.append(world.store.state()); });
        operation(world);
        QCOMPARE(seen.isEmpty(), expected.isEmpty());
        for (const WorkspaceState &state : std::as_const(seen))
            QCOMPARE(state, world.store.state());
    }

    void selectionQueueAndLiveMoveInOneStep()
    {
        World world(showOf({2, 1}));
        world.store.queueSlide(u"B1"_s);
        world.store.toggleBlackout();
        int count = 0;
        const NotificationLog log(world.store, [&](const QString &) {
            ++count;
            QCOMPARE(world.store.selectedSlideID(), u"A2"_s);
            QCOMPARE(world.store.queuedSlideID(), u"A2"_s);
            QCOMPARE(world.store.liveSlideID(), u"A2"_s);
            QCOMPARE(world.store.outputMode(), OutputMode::live);
        });
        world.store.nextLive();
        QCOMPARE(count, 5);
    }

    void anEditIsWholeInEverySlot()
    {
        World world(showOf({3, 1}));
        world.store.selectElement(u"A1.line"_s);
        int count = 0;
        const NotificationLog log(world.store, [&](const QString &) {
            ++count;
            const WorkspaceState &state = world.store.state();
            QCOMPARE(state.project, ProjectNormalizer::inCurrentSchema(state.project));
            QVERIFY(state.hasUnsavedChanges);
            QVERIFY(world.store.canUndo());
            const auto selected = positionOf(state.project, state.selectedSlideID);
            QVERIFY(selected);
            QVERIFY(positionOf(state.project, state.queuedSlideID));
            QVERIFY(positionOf(state.project, state.liveSlideID));
            QCOMPARE(state.project.serviceItems.at(selected->item).id, state.selectedServiceItemID);
            QVERIFY(world.store.selectedElement());
        });
        world.store.deleteSelectedSlide();
        QVERIFY(count >= 6);
        world.store.deleteSelectedServiceItem();
        QCOMPARE(slideIDs(world.store.project()), QStringList{u"B1"_s});
    }

    void aSlotMayCallAnotherOperation()
    {
        World world(showOf({3}));
        QObject context;
        connect(&world.store, &WorkspaceStore::liveSlideIDChanged, &context,
                [&] { world.store.queueNext(); });
        NotificationLog log(world.store);
        world.store.nextLive();
        QCOMPARE(world.store.liveSlideID(), u"A2"_s);
        QCOMPARE(world.store.queuedSlideID(), u"A3"_s);
        QCOMPARE(world.store.selectedSlideID(), u"A3"_s);
        QCOMPARE(log.takeChangedCount(), 2);
    }

private:
    static void addOperations()
    {
        QTest::addColumn<Operation>("prepare");
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const Operation &prepare, const Operation &operation,
                            const char *expected) {
            QTest::newRow(name) << prepare << operation << QString::fromLatin1(expected);
        };
        const Operation nothing = [](World &) {};
        const Operation rename = [](World &w) { w.store.updateProjectName(u"New"_s); };
        const Operation select = [](World &w) { w.store.selectSlide(u"B1"_s, true); };
        const Operation saveTo = [](World &w) {
            w.panels.answer = w.fileUrl(u"saved.quenara"_s);
            w.store.saveProject();
        };
        const Operation openMissing = [](World &w) {
            w.store.openProject(w.fileUrl(u"missing.quenara"_s));
        };
        const auto next = call(&WorkspaceStore::nextLive);
        const auto undo = call(&WorkspaceStore::undo);

        row(
            "a slide selected", nothing, [](World &w) { w.store.selectSlide(u"B1"_s, false); },
            "selectedServiceItemID selectedSlideID selectedElementID");
        row("a slide selected and queued", nothing, select,
            "selectedServiceItemID selectedSlideID queuedSlideID selectedElementID");
        row("the same slide selected again", select, select, "");
        row(
            "a slide queued", nothing, [](World &w) { w.store.queueSlide(u"A2"_s); },
            "queuedSlideID");
        row(
            "a layer selected", nothing, [](World &w) { w.store.selectElement(u"A1.line"_s); },
            "selectedElementID lastSelected");
        row(
            "a section selected", nothing, [](World &w) { w.store.selectServiceItem(u"A"_s); },
            "lastSelected");
        row("the queued slide sent live", select, call(&WorkspaceStore::goLive), "liveSlideID");
        row("the live slide sent live", nothing, call(&WorkspaceStore::goLive), "");
        row("the next slide live", nothing, next, "selectedSlideID queuedSlideID liveSlideID");
        row("the next slide live out of a blackout", call(&WorkspaceStore::toggleBlackout), next,
            "selectedSlideID queuedSlideID liveSlideID outputMode");
        row("the first slide live again", nothing, call(&WorkspaceStore::previousLive), "");
        row("the queue stepped", nothing, call(&WorkspaceStore::queueNext),
            "selectedSlideID queuedSlideID selectedElementID");
        row("the queue at its end", select, call(&WorkspaceStore::queueNext), "");
        row("a blackout", nothing, call(&WorkspaceStore::toggleBlackout), "outputMode");
        row("the holding screen", nothing, call(&WorkspaceStore::toggleLogo), "outputMode");
        row("a first edit", nothing, rename, "project hasUnsavedChanges canUndo");
        row(
            "a second edit", [](World &w) { w.store.updateProjectName(u"Old"_s); }, rename,
            "project");
        row(
            "an edit that changes nothing", rename, [](World &w) { w.store.moveSelectedSlide(-1); },
            "");
        row(
            "an edit that takes no step", nothing,
            [](World &w) { w.store.moveSelectedServiceItem(-1); }, "");
        row(
            "an edit that drops what could be redone",
            [](World &w) {
                w.store.updateProjectName(u"Old"_s);
                w.store.undo();
            },
            rename, "project canUndo canRedo");
        row("a slide deleted", nothing, call(&WorkspaceStore::deleteSelectedSlide),
            "project selectedSlideID queuedSlideID liveSlideID selectedElementID "
            "hasUnsavedChanges canUndo");
        row("an undo", rename, undo, "project canUndo canRedo");
        row("an undo of nothing", nothing, undo, "");
        row(
            "a redo",
            [](World &w) {
                w.store.updateProjectName(u"New"_s);
                w.store.undo();
            },
            call(&WorkspaceStore::redo), "project canUndo canRedo");
        row(
            "a song imported", nothing, [](World &w) { w.store.importSong(u"Song"_s, u"a"_s); },
            "project selectedServiceItemID selectedSlideID queuedSlideID selectedElementID "
            "hasUnsavedChanges canUndo");
        row("a layer added", nothing, call(&WorkspaceStore::addShapeLayer),
            "project selectedElementID lastSelected hasUnsavedChanges canUndo");
        row("a layer raised", nothing, call(&WorkspaceStore::bringSelectedElementForward),
            "project hasUnsavedChanges canUndo");
        row("an image that is not chosen", nothing, call(&WorkspaceStore::addImageLayerWithPanel),
            "");
        row("a file that cannot be opened", nothing, openMissing, "errorMessage");
        row("an alert dismissed", openMissing, call(&WorkspaceStore::dismissError), "errorMessage");
        row("the start panel shown", nothing, call(&WorkspaceStore::showStartPanel),
            "isStartPanelPresented");
        row("the start panel shown twice", call(&WorkspaceStore::showStartPanel),
            call(&WorkspaceStore::showStartPanel), "");
        row(
            "the song import shown", nothing,
            [](World &w) { w.store.setSongImportPresented(true); }, "isSongImportPresented");
        row(
            "a song offered", nothing,
            [](World &w) { w.store.offerSong({.title = u"Song"_s, .lyrics = {}}); },
            "isSongImportPresented offeredSong");
        row(
            "a save after an edit",
            [saveTo, rename](World &w) {
                saveTo(w);
                rename(w);
                w.now = w.now.addSecs(1);
            },
            call(&WorkspaceStore::saveProject), "project hasUnsavedChanges recentProjects");
        row(
            "a new document",
            [saveTo, rename](World &w) {
                saveTo(w);
                rename(w);
                w.store.showStartPanel();
            },
            call(&WorkspaceStore::newBlankProject),
            "project selectedServiceItemID selectedSlideID queuedSlideID liveSlideID "
            "selectedElementID currentFileURL hasUnsavedChanges isStartPanelPresented canUndo");
    }
};

QUENARA_TEST(TestStoreNotifications)

} // namespace tst_store_notifications

#include "tst_store_notifications.moc"
