#include "JsonDates.h"
#include "ProjectFileService.h"
#include "ProjectNormalizer.h"
#include "ProjectTemplates.h"
#include "RecentProjectsStore.h"
#include "Records.h"
#include "TestMain.h"
#include "TestSupport.h"
#include "WorkedOn.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <limits>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_document_lifecycle {

namespace {

using Operation = void (WorkspaceStore::*)();

/// The state of \a store as it is right after its document was installed.
WorkspaceState freshState(const WorkspaceStore &store)
{
    WorkspaceState state = store.state();
    state.hasUnsavedChanges = false;
    state.canUndo = false;
    state.canRedo = false;
    state.outputMode = OutputMode::live;
    state.isStartPanelPresented = false;
    const QList<FlattenedSlide> show = store.flattenedSlides();
    const std::optional<FlattenedSlide> first =
        show.isEmpty() ? std::nullopt : std::optional(show.first());
    const auto firstID = first ? std::optional(first->id()) : std::nullopt;
    state.selectedServiceItemID = first ? std::optional(first->serviceItemID) : std::nullopt;
    state.selectedSlideID = firstID;
    state.queuedSlideID = firstID;
    state.liveSlideID = firstID;
    state.selectedElementID = first ? first->slide.design.firstTextElementID() : std::nullopt;
    return state;
}

QString textOf(ProjectFileError::Case error)
{
    return ProjectFileError(error).description();
}

} // namespace

class TestDocumentLifecycle : public QObject
{
    Q_OBJECT

private slots:
    void aNewDocumentReplacesEverything_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<ZelvoProject>("expected");
        QTest::newRow("a blank one")
            << &WorkspaceStore::newBlankProject << ProjectTemplates::blankProject(someTime());
        QTest::newRow("a Sunday service") << &WorkspaceStore::newSundayServiceProject
                                          << ProjectTemplates::newSundayServiceProject(someTime());
        QTest::newRow("the demo") << &WorkspaceStore::loadDemoProject
                                  << ProjectTemplates::demoProject(someTime());
    }

    void aNewDocumentReplacesEverything()
    {
        QFETCH(Operation, operation);
        QFETCH(ZelvoProject, expected);
        World world(showOf({2, 1}));
        world.panels.answer = world.fileUrl(u"old.quenara"_s);
        world.store.saveProject();
        workOn(world.store);
        const QList<RecentProject> recent = world.store.recentProjects();
        (world.store.*operation)();
        QCOMPARE(withoutIdentifiers(world.store.project()), withoutIdentifiers(expected));
        QVERIFY(!world.store.currentFileURL());
        QCOMPARE(world.store.recentProjects(), recent);
        QCOMPARE(selectionOf(world.store.state()), selectionOf(freshState(world.store)));
        QVERIFY(world.store.state() == freshState(world.store));
    }

    void anOpenedFileIsTheDocument()
    {
        World world(showOf({2, 1}));
        const QUrl url = world.fileUrl(u"other.quenara"_s);
        ZelvoProject other = showOf({0, 1, 2});
        other.name = u"Other"_s;
        ProjectFileService::save(other, url, someTime());
        workOn(world.store);
        world.now = someTime().addSecs(10);
        world.store.openProject(url);
        QCOMPARE(world.store.project(), other);
        QCOMPARE(world.store.currentFileURL(), url);
        QCOMPARE(world.store.recentProjects(),
                 (QList<RecentProject>{
                     {u"Other"_s, url.toLocalFile(), json::referenceSeconds(world.now)}}));
        QVERIFY(!world.store.errorMessage());
        QCOMPARE(selectionOf(world.store.state()), selectionOf(freshState(world.store)));
        QVERIFY(world.store.state() == freshState(world.store));

        const WorkspaceState before = world.store.state();
        world.store.undo();
        world.store.redo();
        QCOMPARE(world.store.state(), before);
    }

    void aFailureToOpenLeavesEverythingButItsMessage_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("message");
        QTest::newRow("a missing file")
            << dataPath(u"no such file.quenara"_s) << textOf(ProjectFileError::unableToRead);
        QTest::newRow("a folder") << dataPath(QString()) << textOf(ProjectFileError::unableToRead);
        QTest::newRow("broken JSON")
            << dataPath(u"broken.json"_s) << textOf(ProjectFileError::unsupportedFormat);
        QTest::newRow("a list") << dataPath(u"array.json"_s)
                                << textOf(ProjectFileError::unsupportedFormat);
    }

    void aFailureToOpenLeavesEverythingButItsMessage()
    {
        QFETCH(QString, path);
        QFETCH(QString, message);
        World world(showOf({2, 1}));
        workOn(world.store);
        WorkspaceState expected = world.store.state();
        const auto undoStack = world.store.undoStore().undoStack();
        const auto redoStack = world.store.undoStore().redoStack();
        QVERIFY(!undoStack.isEmpty() && !redoStack.isEmpty());
        world.store.openProject(QUrl::fromLocalFile(path));
        expected.errorMessage = message;
        QCOMPARE(world.store.state(), expected);
        QCOMPARE(world.store.undoStore().undoStack(), undoStack);
        QCOMPARE(world.store.undoStore().redoStack(), redoStack);

        world.store.dismissError();
        expected.errorMessage.reset();
        QCOMPARE(world.store.state(), expected);
    }

    void openingAsksForAProject()
    {
        World world(showOf({2}));
        const WorkspaceState before = world.store.state();
        world.store.openProjectWithPanel();
        QCOMPARE(world.panels.asked, QList{zelvoProjectOpenPanel()});
        QCOMPARE(world.store.state(), before);

        world.panels.answer = QUrl::fromLocalFile(dataPath(u"current.quenara"_s));
        world.store.openProjectWithPanel();
        QCOMPARE(world.store.currentFileURL(), world.panels.answer);
        QCOMPARE(world.store.selectedSlideID(), u"SLIDE-1"_s);
    }

    void savingAnUntitledDocumentAsksForAPlace()
    {
        World world;
        world.store.newBlankProject();
        world.store.updateProjectName(u"Untitled Quenara"_s);
        const WorkspaceState before = world.store.state();
        world.store.saveProject();
        QCOMPARE(world.panels.asked, QList{zelvoProjectSavePanel(u"Untitled Quenara"_s)});
        QCOMPARE(world.panels.asked.first().fileName, u"Untitled Quenara.quenara"_s);
        QCOMPARE(world.store.state(), before);
        QVERIFY(world.store.hasUnsavedChanges());
    }

    void aDocumentWithoutANameIsOfferedUnderTheProgramsName()
    {
        World world;
        world.store.updateProjectName(QString());
        world.store.saveProjectAs();
        QCOMPARE(world.panels.asked, QList{zelvoProjectSavePanel(u"Quenara"_s)});
    }

    void aSavedDocumentEqualsItsFile()
    {
        ZelvoProject project = showOf({2, 1});
        project.serviceItems[0].slides[0].body = u"stale"_s;
        World world(project);
        workOn(world.store);
        const QUrl url = world.fileUrl(u"saved.quenara"_s);
        world.panels.answer = url;
        world.now = someTime().addDays(1);
        const WorkspaceState before = world.store.state();
        const auto undoStack = world.store.undoStore().undoStack();
        world.store.saveProject();

        QCOMPARE(world.store.project(), ProjectFileService::load(url, someTime()));
        WorkspaceState expected = before;
        expected.project = ProjectNormalizer::normalizedForSave(before.project, world.now);
        expected.currentFileURL = url;
        expected.hasUnsavedChanges = false;
        expected.recentProjects = {
            {u"Worked on"_s, url.toLocalFile(), json::referenceSeconds(world.now)}};
        QCOMPARE(world.store.state(), expected);
        QCOMPARE(world.store.undoStore().undoStack(), undoStack);
    }

    void aDesignThatSavingFillsInIsTheFilesOwn()
    {
        ZelvoProject project = showOf({1});
        project.serviceItems[0].slides[0].design.elements.clear();
        World world(project);
        const QUrl url = world.fileUrl(u"saved.quenara"_s);
        world.panels.answer = url;
        world.store.saveProject();
        QVERIFY(!world.store.flattenedSlides().first().slide.design.elements.isEmpty());
        QCOMPARE(world.store.project(), ProjectFileService::load(url, someTime()));
    }

    void savingAgainWritesTheSameFileWithoutAsking()
    {
        World world(showOf({1}));
        world.panels.answer = world.fileUrl(u"saved.quenara"_s);
        world.store.saveProject();
        world.panels.asked.clear();
        world.store.updateProjectName(u"Second"_s);
        world.store.saveProject();
        QVERIFY(world.panels.asked.isEmpty());
        QCOMPARE(ProjectFileService::load(*world.panels.answer, someTime()).name, u"Second"_s);
    }

    void savingUnderAnotherNameMovesTheDocumentThere()
    {
        World world(showOf({1}));
        world.panels.answer = world.fileUrl(u"one.quenara"_s);
        world.store.saveProject();
        world.panels.answer = world.fileUrl(u"two.quenara"_s);
        world.store.saveProjectAs();
        QCOMPARE(world.store.currentFileURL(), world.fileUrl(u"two.quenara"_s));
        QVERIFY(QFile::exists(world.folder.filePath(u"one.quenara"_s)));
        QVERIFY(QFile::exists(world.folder.filePath(u"two.quenara"_s)));

        world.panels.answer.reset();
        const WorkspaceState before = world.store.state();
        world.store.saveProjectAs();
        QCOMPARE(world.store.state(), before);
    }

    void aFailedSaveIsReportedAndChangesNothingElse()
    {
        World world(showOf({1}));
        const QUrl url = world.fileUrl(u"folder/saved.quenara"_s);
        QVERIFY(QDir(world.folder.path()).mkpath(u"folder"_s));
        world.panels.answer = url;
        world.store.saveProject();
        QVERIFY(QDir(world.folder.filePath(u"folder"_s)).removeRecursively());
        world.store.updateProjectName(u"Unsaved"_s);
        WorkspaceState expected = world.store.state();
        world.store.saveProject();
        expected.errorMessage = textOf(ProjectFileError::unableToWrite);
        QCOMPARE(world.store.state(), expected);
        QVERIFY(world.store.hasUnsavedChanges());
    }

    void aProjectThatCannotBeEncodedIsReportedAsSuchAndChangesNothingElse()
    {
        World world(showOf({1}));
        world.store.updateSelectedSlide([](Slide &slide) {
            slide.design.elements[0].frame.x = std::numeric_limits<double>::infinity();
        });
        world.panels.answer = world.fileUrl(u"never.quenara"_s);
        WorkspaceState expected = world.store.state();
        world.store.saveProject();
        expected.errorMessage = u"The project holds a number that cannot be saved."_s;
        QCOMPARE(world.store.state(), expected);
        QVERIFY(!QFile::exists(world.panels.answer->toLocalFile()));
    }

    void buildingAStoreOnlyNumbersAndTheFirstEditRaisesTheSchemaVersion()
    {
        ZelvoProject project = showOf({2, 1});
        project.schemaVersion = 1;
        project.serviceItems[1].orderIndex = 7;
        World world(project);
        QCOMPARE(world.store.project().schemaVersion, 1);
        QCOMPARE(world.store.project().serviceItems.at(1).orderIndex, 1);
        world.store.updateProjectName(u"Edited"_s);
        QCOMPARE(world.store.project().schemaVersion, 2);
        world.store.undo();
        QCOMPARE(world.store.project().schemaVersion, 1);
    }

    void twoProgramsKeepEachOthersRecentProjects()
    {
        World world(showOf({1}));
        QSettings others(world.preferences.fileName(), QSettings::IniFormat);
        const auto save = [&world](const QString &name) {
            world.now = world.now.addSecs(1);
            world.panels.answer = world.fileUrl(name);
            world.store.saveProjectAs();
            world.preferences.sync();
        };
        QVERIFY(RecentProjectsStore::load(others).isEmpty());
        save(u"ours.quenara"_s);
        world.now = world.now.addSecs(1);
        RecentProjectsStore::add(others, world.fileUrl(u"theirs.quenara"_s), u"Theirs"_s,
                                 world.now);
        others.sync();
        save(u"ours too.quenara"_s);
        QStringList names;
        for (const RecentProject &project : world.store.recentProjects())
            names.append(project.url().fileName());
        QCOMPARE(names,
                 (QStringList{u"ours too.quenara"_s, u"theirs.quenara"_s, u"ours.quenara"_s}));
    }

    void theFileMostRecentlyUsedComesFirst()
    {
        World world(showOf({1}));
        const auto save = [&world](const QString &name) {
            world.now = world.now.addSecs(1);
            world.panels.answer = world.fileUrl(name);
            world.store.saveProjectAs();
        };
        save(u"one.quenara"_s);
        save(u"two.quenara"_s);
        world.now = world.now.addSecs(1);
        world.store.openProject(world.fileUrl(u"one.quenara"_s));
        QStringList paths;
        for (const RecentProject &project : world.store.recentProjects())
            paths.append(project.path);
        QCOMPARE(paths,
                 (QStringList{world.folder.filePath(u"one.quenara"_s),
                              world.folder.filePath(u"two.quenara"_s)}));

        // Another workspace over the same preferences starts with the list.
        const WorkspaceStore next(showOf({}),
                                  {.preferences = world.preferences, .panels = world.panels});
        QCOMPARE(next.recentProjects(), world.store.recentProjects());
    }

    void panelsAreShownAndHidden()
    {
        World world(showOf({1}));
        world.store.showStartPanel();
        QVERIFY(world.store.isStartPanelPresented());
        world.store.setStartPanelPresented(false);
        QVERIFY(!world.store.isStartPanelPresented());
        world.store.setSongImportPresented(true);
        QVERIFY(world.store.isSongImportPresented());
        QVERIFY(!world.store.isStartPanelPresented());
        QVERIFY(!world.store.hasUnsavedChanges());
    }
};

QUENARA_TEST(TestDocumentLifecycle)

} // namespace tst_document_lifecycle

#include "tst_document_lifecycle.moc"
