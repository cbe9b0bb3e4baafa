#include "Files.h"
#include "FullDisk.h"
#include "ProjectFileService.h"
#include "ProjectTemplates.h"
#include "RandomHand.h"
#include "SessionRecorder.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QDir>
#include <QTest>

#include <chrono>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace tst_session_recorder {

namespace {

/// A world whose store is recorded.
struct RecordedWorld : World
{
    QTemporaryDir state;
    QString journals = state.filePath(u"recovery"_s);
    std::unique_ptr<SessionRecorder> recorder;

    explicit RecordedWorld(
        const ZelvoProject &project = ProjectTemplates::demoProject(someTime()),
        std::chrono::milliseconds pauseAfterFailure = SessionRecorder::usualPauseAfterFailure)
        : World(project),
          recorder(std::make_unique<SessionRecorder>(store, journals, pauseAfterFailure))
    {}

    QStringList files() const { return QDir(journals).entryList(QDir::Files | QDir::Hidden); }
    QByteArray bytes() const
    {
        QFile file(journals + u'/' + files().value(0));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    std::optional<Session> recorded() const { return SessionJournal::read(bytes()); }

    /// Makes the document one that is saved.
    void save()
    {
        panels.answer = fileUrl(u"show.quenara"_s);
        store.saveProject();
    }
};

/// What the journal has to hold of the state of \a store.
Session sessionOf(const WorkspaceStore &store)
{
    const WorkspaceState &state = store.state();
    Session session;
    session.projectName = state.project.name;
    if (state.currentFileURL) {
        session.file = state.currentFileURL->toLocalFile();
        session.fileVersion = store.fileVersion();
    }
    session.hasUnsavedChanges = state.hasUnsavedChanges;
    if (!state.currentFileURL || state.hasUnsavedChanges)
        session.project = state.project;
    session.selectedServiceItemID = state.selectedServiceItemID;
    session.selectedSlideID = state.selectedSlideID;
    session.queuedSlideID = state.queuedSlideID;
    session.liveSlideID = state.liveSlideID;
    session.selectedElementID = state.selectedElementID;
    session.outputMode = state.outputMode;
    return session;
}

/// Whether the journal holds the state of the store; a project that a gesture has led back to what
/// is saved may stay in it.
bool isUpToDate(const RecordedWorld &world)
{
    std::optional<Session> recorded = world.recorded();
    Session expected = sessionOf(world.store);
    if (!recorded)
        return false;
    recorded->filePlaces.reset(); // beside the identifiers, which are compared
    if (world.store.hasOpenGesture() && !expected.project && recorded->project)
        expected.project = world.store.project();
    return recorded == expected;
}

void editText(WorkspaceStore &store)
{
    store.updateSelectedElement([](SlideElement &element) { element.name += u"+"_s; });
}

/// Something that is done in a world.
using Act = void (*)(RecordedWorld &);

/// Saves the document, and then changes it while the disk is full.
void failToRecord(RecordedWorld &world, void (*change)(WorkspaceStore &),
                  const Caller &caller = Caller::current())
{
    world.save();
    QCoreApplication::sendPostedEvents();
    QTest::ignoreMessage(QtInfoMsg, "Quenara could not write its recovery journal.");
    const FullDisk disk;
    change(world.store);
    QCoreApplication::sendPostedEvents();
    if (world.recorder->synchronize())
        fail(u"the disk is not full"_s, caller);
}

} // namespace

class TestSessionRecorder : public QObject
{
    Q_OBJECT

private slots:
    void theJournalHoldsEveryPublishedState_data()
    {
        QTest::addColumn<bool>("hasFile");
        QTest::newRow("of a document without a file") << false;
        QTest::newRow("of a saved document") << true;
    }

    void theJournalHoldsEveryPublishedState()
    {
        QFETCH(bool, hasFile);
        for (unsigned seed = 1; seed <= 12; ++seed) {
            RecordedWorld world(showOf({3, 2, 1}));
            if (hasFile)
                world.save();
            bool isAlwaysUpToDate = true;
            int count = 0;
            connect(&world.store, &WorkspaceStore::changed, this, [&] {
                ++count;
                isAlwaysUpToDate = isAlwaysUpToDate && isUpToDate(world);
            });
            RandomHand hand(world, seed);
            for (int step = 0; step < 60; ++step) {
                hand.act([&] { QCoreApplication::sendPostedEvents(); });
                if (step % 5 == 0)
                    QCoreApplication::sendPostedEvents();
                QVERIFY2(isAlwaysUpToDate, QByteArray::number(step));
            }
            QVERIFY(count > 20);
            QVERIFY(isUpToDate(world));
        }
    }

    void anEditIsInTheJournalBeforeAnyViewPaintsIt()
    {
        RecordedWorld world;
        int count = 0;
        connect(&world.store, &WorkspaceStore::projectChanged, this, [&] {
            ++count;
            QVERIFY(isUpToDate(world));
        });
        editText(world.store);
        world.store.undo();
        QCOMPARE(count, 2);
    }

    void aProgramThatWasJustStartedHasNoJournal()
    {
        RecordedWorld world(ProjectTemplates::blankProject(someTime()));
        world.store.showStartPanel();
        world.store.goLive();
        QCOMPARE(world.files(), QStringList());
        world.store.loadDemoProject();
        QCOMPARE(world.recorded(), std::optional(sessionOf(world.store)));
        world.store.newBlankProject();
        QCOMPARE(world.files(), QStringList());
        world.store.updateProjectName(u"Named"_s);
        QCOMPARE(world.recorded(), std::optional(sessionOf(world.store)));
    }

    void ofASavedDocumentItHoldsTheShowAlone()
    {
        RecordedWorld world(showOf({20}));
        world.save();
        QVERIFY(!world.recorded()->project);
        QVERIFY(world.bytes().size() < 1000);
        world.store.nextLive();
        world.store.toggleBlackout();
        world.recorder->setWindows({.display = DisplayPlace::overOperator, .isStageOpen = true});
        QVERIFY(world.bytes().size() < 1500);
        Session expected = sessionOf(world.store);
        expected.filePlaces = world.recorded()->filePlaces;
        expected.windows = {.display = DisplayPlace::overOperator, .isStageOpen = true};
        QCOMPARE(world.recorded(), std::optional(expected));
    }

    void aSaveMakesItSmallAgain()
    {
        RecordedWorld world(showOf({20}));
        world.save();
        editText(world.store);
        QVERIFY(world.bytes().size() > 10'000);
        QVERIFY(world.recorded()->project);
        world.store.saveProject();
        QVERIFY(world.bytes().size() < 1000);
        QVERIFY(isUpToDate(world));
    }

    void aGestureThatLeadsBackKeepsItWhileItIsOpen()
    {
        RecordedWorld world(showOf({20}));
        world.save();
        const GestureID gesture = world.store.beginGesture();
        world.store.updateProjectName(u"Other"_s);
        const qsizetype size = world.bytes().size();
        for (const QString &name : {u"Show"_s, u"Other"_s, u"Show"_s, u"Other"_s})
            world.store.updateProjectName(name);
        QVERIFY(world.bytes().size() < size + 1000);
        world.store.cancelGesture(gesture);
        QVERIFY(!world.store.hasUnsavedChanges());
        QVERIFY(world.bytes().size() < 1000);
    }

    void aStepOfTheShowAddsLittle()
    {
        RecordedWorld world(showOf({200, 200}));
        editText(world.store);
        const qsizetype size = world.bytes().size();
        world.store.nextLive();
        QVERIFY(world.bytes().size() > size);
        QVERIFY(world.bytes().size() < size + 300);
        QVERIFY(isUpToDate(world));
    }

    void anotherDocumentTakesThePlaceOfTheFirst()
    {
        RecordedWorld world(showOf({200}));
        editText(world.store);
        const qsizetype size = world.bytes().size();
        world.store.newSundayServiceProject();
        QVERIFY(world.bytes().size() < size);
        QVERIFY(isUpToDate(world));
        QCOMPARE(world.files().size(), 1);
    }

    void anotherDocumentIsRecordedWhereNothingOfTheFirstWasWorthKeeping()
    {
        RecordedWorld world;
        editText(world.store);
        world.store.newBlankProject();
        QCOMPARE(world.files(), QStringList());
        QCoreApplication::sendPostedEvents(); // the first is brought to the disk only now
        world.store.newSundayServiceProject();
        QVERIFY(isUpToDate(world));
    }

    void itGoesWhenTheProgramEndsInOrder()
    {
        RecordedWorld world;
        editText(world.store);
        QCOMPARE(world.files().size(), 1);
        world.recorder.reset();
        QCOMPARE(world.files(), QStringList());
    }

    void unsavedWorkCanBeLeftToTheNextStart()
    {
        RecordedWorld world;
        editText(world.store);
        const Session left = sessionOf(world.store);
        world.recorder->setLeavesUnsavedWork(true);
        world.recorder.reset();
        const QList<LeftOverJournal> leftOver = leftOverJournals(world.journals);
        QCOMPARE(leftOver.size(), 1);
        QCOMPARE(leftOver.first().session, left);
    }

    void whereNothingIsUnsavedNothingIsLeft()
    {
        RecordedWorld world;
        world.save();
        world.recorder->setLeavesUnsavedWork(true);
        world.recorder.reset();
        QCOMPARE(world.files(), QStringList());
    }

    void whatIsContinuedIsThereAsItWas()
    {
        RecordedWorld before(showOf({3, 2}));
        before.save();
        before.store.selectSlide(u"B1"_s, true);
        before.store.goLive();
        before.store.selectSlide(u"A2"_s, true);
        before.store.selectElement(u"A2.line"_s);
        editText(before.store);
        before.store.toggleLogo();

        RecordedWorld after;
        editText(after.store);
        QVERIFY(after.store.continueSession(*before.recorded()));
        WorkspaceState expected = before.store.state();
        expected.canUndo = false;
        expected.lastSelected = SelectionKind::slide;
        expected.recentProjects = after.store.recentProjects();
        QVERIFY(after.store.state() == expected);
        QCOMPARE(after.recorded(), before.recorded());
        QCOMPARE(after.store.recentProjects().size(), 1);
    }

    void aSavedShowGoesOnFromItsFile()
    {
        RecordedWorld before(showOf({3, 2}));
        before.save();
        before.store.nextLive();
        before.store.toggleBlackout();

        World after;
        QVERIFY(after.store.continueSession(*before.recorded()));
        WorkspaceState expected = before.store.state();
        expected.recentProjects = after.store.recentProjects();
        QVERIFY(after.store.state() == expected);
    }

    void aShowGoesOnFromAFileWithoutIdentifiersByThePlacesOfItsSlides()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(u"show.quenara"_s);
        QVERIFY(QFile::copy(dataPath(u"legacy-flat.json"_s), path));
        RecordedWorld before;
        before.store.openProject(QUrl::fromLocalFile(path));
        before.store.nextLive();
        before.store.queueNext();
        const Session session = *before.recorded();

        World after;
        QVERIFY(after.store.continueSession(session));
        const auto placeOf = [](const WorkspaceStore &store, const std::optional<QString> &id) {
            return store.positionOf(id).value().absolute;
        };
        QVERIFY(after.store.liveSlideID() != before.store.liveSlideID());
        QCOMPARE(placeOf(after.store, after.store.liveSlideID()), 1);
        QCOMPARE(placeOf(after.store, after.store.queuedSlideID()),
                 placeOf(before.store, before.store.queuedSlideID()));
        QCOMPARE(after.store.outputMode(), OutputMode::live);

        // In a file that was changed meanwhile, another slide may stand there.
        QFile file(path);
        QVERIFY(file.open(QIODevice::Append));
        QCOMPARE(file.write("\n"), 1);
        file.close();
        World later;
        QVERIFY(later.store.continueSession(session));
        QCOMPARE(later.store.outputMode(), OutputMode::blackout);
    }

    void aFileThatIsGoneContinuesNothing()
    {
        RecordedWorld before;
        before.save();
        const Session session = *before.recorded();
        QVERIFY(QFile::remove(*session.file));

        World after;
        Snapshot expected = snapshotOf(after.store);
        expected.state.errorMessage = u"Quenara could not read that file."_s;
        QVERIFY(!after.store.continueSession(session));
        QVERIFY(snapshotOf(after.store) == expected);
    }

    void aLiveSlideThatIsGoneLeavesTheAudienceInTheDark()
    {
        World world;
        Session session = sessionOf(world.store);
        session.liveSlideID = u"gone"_s;
        QVERIFY(world.store.continueSession(session));
        QCOMPARE(world.store.outputMode(), OutputMode::blackout);
        QCOMPARE(world.store.liveSlideID(), world.store.selectedSlideID());
        QVERIFY(world.store.slideWithID(world.store.liveSlideID()));
    }

    void aFullDiskIsToldOnceAndDisturbsNothing()
    {
        RecordedWorld world(showOf({2}));
        world.save();
        editText(world.store);
        const QByteArray whole = world.bytes();
        const Session last = *world.recorded();
        const QSignalSpy told(world.recorder.get(), &SessionRecorder::isKeepingChanged);
        QTest::ignoreMessage(QtInfoMsg, "Quenara could not write its recovery journal.");
        {
            const FullDisk disk(ulong(whole.size()) + 20);
            for (int i = 0; i < 5; ++i) {
                editText(world.store);
                QCoreApplication::sendPostedEvents();
            }
            QVERIFY(!world.store.errorMessage());
            QCOMPARE(world.recorded(), std::optional(last));
            QCOMPARE(told, (QList<QVariantList>{{false}}));
        }
        world.store.saveProject();
        QVERIFY(isUpToDate(world));
        editText(world.store);
        QVERIFY(isUpToDate(world));
        QCOMPARE(told, (QList<QVariantList>{{false}, {true}}));
    }

    void onceTheDiskHasRoomAgainAnyChangeBringsAllToIt_data()
    {
        QTest::addColumn<Act>("change");
        QTest::newRow("an edit") << Act([](RecordedWorld &world) { editText(world.store); });
        QTest::newRow("a step") << Act([](RecordedWorld &world) { world.store.nextLive(); });
        QTest::newRow("a window") << Act(
            [](RecordedWorld &world) { world.recorder->setWindows({.isStageOpen = true}); });
    }

    void onceTheDiskHasRoomAgainAnyChangeBringsAllToIt()
    {
        QFETCH(Act, change);
        RecordedWorld world(showOf({2}), 0ms);
        failToRecord(world, editText);
        change(world);
        QCoreApplication::sendPostedEvents();
        QVERIFY(world.recorded() && world.recorded()->project == world.store.project());
        editText(world.store);
        QVERIFY(world.recorded()->project == world.store.project());
    }

    void aDocumentThatIsOpenedAfterAFailureIsTheOneThatComesBack()
    {
        RecordedWorld world(showOf({3}), 0ms);
        failToRecord(world, [](WorkspaceStore &store) { store.nextLive(); });
        const QUrl other = world.fileUrl(u"other.quenara"_s);
        ProjectFileService::save(showOf({2}), other, someTime());
        world.store.openProject(other);
        world.store.nextLive();
        QCoreApplication::sendPostedEvents();
        QVERIFY(isUpToDate(world));
    }

    void aDocumentThatIsLeftAfterAFailureDoesNotComeBack()
    {
        RecordedWorld world(showOf({3}), 1h);
        failToRecord(world, [](WorkspaceStore &store) { store.nextLive(); });
        world.store.newBlankProject();
        QCOMPARE(world.files(), QStringList());
        world.store.updateProjectName(u"Next"_s);
        QVERIFY(isUpToDate(world));
    }

    void noChangeTriesAgainBeforeThePauseIsOver()
    {
        RecordedWorld world(showOf({2}), 1h);
        failToRecord(world, editText);
        const QByteArray before = world.bytes();
        for (int i = 0; i < 3; ++i) {
            editText(world.store);
            world.store.nextLive();
            QCoreApplication::sendPostedEvents();
        }
        QCOMPARE(world.bytes(), before);
    }

    void whatIsToBeOnTheDiskWaitsForNoPause()
    {
        RecordedWorld world(showOf({2}), 1h);
        failToRecord(world, editText);
        QVERIFY(world.recorder->synchronize());
        QVERIFY(isUpToDate(world));
    }

    void workThatCouldNotBeWrittenIsLeftToTheNextStartOnceItCan()
    {
        RecordedWorld world(showOf({2}), 1h);
        failToRecord(world, editText);
        world.recorder->setLeavesUnsavedWork(true);
        QVERIFY(isUpToDate(world));
        world.recorder.reset();
        QVERIFY(isUpToDate(world));
    }

    void aJournalThatSomebodyRemovesIsThereAgain_data()
    {
        QTest::addColumn<Act>("change");
        QTest::newRow("after the next edit")
            << Act([](RecordedWorld &world) { editText(world.store); });
        QTest::newRow("after the next step")
            << Act([](RecordedWorld &world) { world.store.nextLive(); });
        QTest::newRow("once all is to be on the disk")
            << Act([](RecordedWorld &world) { world.recorder->synchronize(); });
    }

    void aJournalThatSomebodyRemovesIsThereAgain()
    {
        QFETCH(Act, change);
        RecordedWorld world(showOf({2}));
        editText(world.store);
        QCoreApplication::sendPostedEvents();
        QVERIFY(QDir(world.journals).removeRecursively());
        change(world);
        QCoreApplication::sendPostedEvents();
        QVERIFY(isUpToDate(world));
        editText(world.store);
        QVERIFY(isUpToDate(world));
    }

    void aNumberThatCannotBeWrittenIsNotSaidToBeOnTheDisk()
    {
        RecordedWorld world(showOf({2}));
        editText(world.store);
        const QByteArray before = world.bytes();
        const auto moveTo = [&world](double x) {
            world.store.updateSelectedElement([x](SlideElement &element) { element.frame.x = x; });
        };
        QTest::ignoreMessage(QtInfoMsg, "Quenara could not write its recovery journal.");
        moveTo(qInf());
        QVERIFY(!world.recorder->synchronize());
        QCOMPARE(world.bytes(), before);
        moveTo(1);
        QVERIFY(world.recorder->synchronize());
        QVERIFY(isUpToDate(world));
    }

    void whereNothingCanBeWrittenAnewNothingIsSaidToBeOnTheDisk()
    {
        RecordedWorld world(showOf({2}));
        editText(world.store);
        QVERIFY(QDir(world.journals).removeRecursively());
        writeFile(world.journals, {});
        QTest::ignoreMessage(QtInfoMsg, "Quenara could not write its recovery journal.");
        QVERIFY(!world.recorder->synchronize());
    }
};

QUENARA_TEST(TestSessionRecorder)

} // namespace tst_session_recorder

#include "tst_session_recorder.moc"
