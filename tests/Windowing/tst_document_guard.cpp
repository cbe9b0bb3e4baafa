#include "GuiTestSupport.h"
#include "ProjectFileService.h"
#include "WindowingWorld.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QScopedValueRollback>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_document_guard {

namespace {

const QMenu &openRecentMenu(const OperatorWindow &window, const Caller &caller = Caller::current())
{
    for (const QMenu *menu : window.findChildren<QMenu *>()) {
        if (menu->title() == u"Open Recent"_s)
            return *menu;
    }
    fail(QStringLiteral("there is no Open Recent"), caller);
}

/// The program's window over a document that is saved at first.
struct Program : WindowingWorld
{
    OperatorWindow window{store, windows, guard, commands, menus, caches};

    Program()
    {
        panels.answer = fileUrl(u"first.quenara"_s);
        store.saveProject();
        panels.answer.reset();
        panels.asked.clear();
        showActive(window);
    }

    QList<QAction *> recentItems() const
    {
        QCoreApplication::processEvents(); // the list follows a little later
        return openRecentMenu(window).actions();
    }
};

const LeaveQuestion unsavedQuestion{
    .text = u"Do you want to save the changes to \u201cEaster\u201d?"_s,
    .detail = u"Your changes are lost if you don't save them."_s,
    .offersSave = true,
    .proceedTitle = u"Don't Save"_s,
};

using Leave = void (*)(Program &);

} // namespace

class TestDocumentGuard : public GuiTest
{
    Q_OBJECT

    /// Everything that drops the document, by the operator's own ways.
    static void addWaysToLeave()
    {
        QTest::addColumn<Leave>("leave");
        const auto row = [](const char *name, Leave leave) { QTest::newRow(name) << leave; };
        row("a new blank project",
            [](Program &p) { p.commands.action(Command::newBlankProject)->trigger(); });
        row("a new Sunday service",
            [](Program &p) { p.commands.action(Command::newSundayService)->trigger(); });
        row("opening a file", [](Program &p) {
            const QUrl url = QUrl::fromLocalFile(dataPath(u"current.quenara"_s));
            const QScopedValueRollback answer(p.panels.answer, std::optional(url));
            p.commands.action(Command::open)->trigger();
        });
        row("a recent project", [](Program &p) { p.recentItems().constLast()->trigger(); });
        row("quitting", [](Program &p) { p.commands.action(Command::quit)->trigger(); });
        row("closing the window", [](Program &p) { p.window.close(); });
    }

    static bool hasLeft(const Program &program, const WorkspaceState &before)
    {
        return program.store.project() != before.project || !program.window.isVisible();
    }

private slots:
    void anUnchangedDocumentIsLeftWithoutAQuestion_data() { addWaysToLeave(); }
    void anUnchangedDocumentIsLeftWithoutAQuestion()
    {
        QFETCH(Leave, leave);
        Program program;
        program.store.openProject(QUrl::fromLocalFile(dataPath(u"legacy-flat.json"_s)));
        const WorkspaceState before = program.store.state();
        leave(program);
        QVERIFY(program.questions.asked.isEmpty());
        QVERIFY(hasLeft(program, before));
    }

    void cancelKeepsEverythingAsItIs_data() { addWaysToLeave(); }
    void cancelKeepsEverythingAsItIs()
    {
        QFETCH(Leave, leave);
        Program program;
        program.store.updateProjectName(u"Easter"_s);
        const WorkspaceState before = program.store.state();
        leave(program);
        QCOMPARE(program.questions.asked, QList{unsavedQuestion});
        QCOMPARE(program.store.state(), before);
        QVERIFY(program.panels.asked.isEmpty());
        QVERIFY(program.window.isVisible());
        QVERIFY(program.store.canUndo());
    }

    void notSavingLeavesAndTheFileStaysAsItWas_data() { addWaysToLeave(); }
    void notSavingLeavesAndTheFileStaysAsItWas()
    {
        QFETCH(Leave, leave);
        Program program;
        const QUrl url = *program.store.currentFileURL();
        const ZelvoProject saved = program.store.project();
        program.store.updateProjectName(u"Easter"_s);
        const WorkspaceState before = program.store.state();
        program.questions.answer = LeaveAnswer::proceed;
        leave(program);
        QVERIFY(hasLeft(program, before));
        QCOMPARE(ProjectFileService::load(url, someTime()), saved);
    }

    void savingWritesTheFileAndLeaves_data() { addWaysToLeave(); }
    void savingWritesTheFileAndLeaves()
    {
        QFETCH(Leave, leave);
        Program program;
        const QUrl url = *program.store.currentFileURL();
        // So that the recent project that is opened is another one.
        program.store.openProject(QUrl::fromLocalFile(dataPath(u"current.quenara"_s)));
        program.store.openProject(url);
        program.store.updateProjectName(u"Easter"_s);
        const WorkspaceState before = program.store.state();
        program.questions.answer = LeaveAnswer::save;
        leave(program);
        QVERIFY(hasLeft(program, before));
        QCOMPARE(ProjectFileService::load(url, someTime()).name, u"Easter"_s);
    }

    void aCancelledSavePanelAbortsWhatWasAskedFor_data() { addWaysToLeave(); }
    void aCancelledSavePanelAbortsWhatWasAskedFor()
    {
        QFETCH(Leave, leave);
        Program program;
        program.store.newBlankProject();
        program.store.updateProjectName(u"Easter"_s);
        program.questions.answer = LeaveAnswer::save;
        const WorkspaceState before = program.store.state();
        // The open panel has an answer prepared; only the save panel that comes first is cancelled.
        program.questions.meanwhile = [&program] { program.panels.answer.reset(); };
        leave(program);
        QCOMPARE(program.panels.asked, QList{zelvoProjectSavePanel(u"Easter"_s)});
        QCOMPARE(program.store.state(), before);
        QVERIFY(program.window.isVisible());
    }

    void aFailedSaveAbortsWhatWasAskedFor_data() { addWaysToLeave(); }
    void aFailedSaveAbortsWhatWasAskedFor()
    {
        QFETCH(Leave, leave);
        Program program;
        const QString path = program.store.currentFileURL()->toLocalFile();
        QVERIFY(QFile::remove(path));
        QVERIFY(QDir().mkdir(path));
        program.store.updateProjectName(u"Easter"_s);
        program.questions.answer = LeaveAnswer::save;
        WorkspaceState expected = program.store.state();
        leave(program);
        expected.errorMessage = u"Quenara could not save the project."_s;
        QCOMPARE(program.store.state(), expected);
        QVERIFY(program.window.isVisible());
        QVERIFY(program.panels.asked.isEmpty());
    }

    void whatIsStillBeingTypedIsAskedAboutToo()
    {
        Program program;
        program.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&program.window));
        auto *field = program.window.findChild<QLineEdit *>(u"projectName"_s);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, u"Easter"_s);
        program.window.close();
        QCOMPARE(program.questions.asked, QList{unsavedQuestion});
        QVERIFY(program.window.isVisible());
    }

    void commandsOnTheDocumentWaitWhileADialogStands()
    {
        Program program;
        program.store.updateProjectName(u"Easter"_s);
        program.openDisplay();
        program.store.showStartPanel();
        QVERIFY(QApplication::activeModalWidget());
        const WorkspaceState before = program.store.state();
        for (const CommandDescription &item : commandDescriptions()) {
            if (item.worksOnDocument)
                program.commands.action(item.command)->trigger();
        }
        QCOMPARE(program.store.state(), before);
        QVERIFY(program.panels.asked.isEmpty() && program.questions.asked.isEmpty());
        program.commands.perform(Command::toggleBlackout); // as the display's keys do
        QCOMPARE(program.store.outputMode(), OutputMode::blackout);
    }

    void quittingDuringTheServiceAsksEvenWhenAllIsSaved()
    {
        Program program;
        program.openDisplay();
        program.commands.action(Command::quit)->trigger();
        QCOMPARE(program.questions.asked.size(), 1);
        const LeaveQuestion question = program.questions.asked.constFirst();
        QCOMPARE(question.text, u"Do you want to quit during the service?"_s);
        QVERIFY(!question.offersSave);
        QCOMPARE(question.proceedTitle, u"Quit"_s);
        QVERIFY(program.window.isVisible());
        QVERIFY(program.windows.isDisplayWindowOpen());

        program.questions.answer = LeaveAnswer::proceed;
        program.commands.action(Command::quit)->trigger();
        QVERIFY(!program.window.isVisible());
        QVERIFY(!program.windows.isDisplayWindowOpen());
    }

    void unsavedChangesAndAnOpenDisplayAreOneQuestion()
    {
        Program program;
        program.store.updateProjectName(u"Easter"_s);
        program.openDisplay();
        program.commands.action(Command::quit)->trigger();
        QCOMPARE(program.questions.asked.size(), 1);
        LeaveQuestion question = program.questions.asked.constFirst();
        const QStringList detail = question.detail.split(u'\n');
        QCOMPARE(detail.size(), 2);
        QVERIFY(detail.constLast().contains(u"audience"_s));
        question.detail = detail.constFirst();
        QCOMPARE(question, unsavedQuestion);
    }

    void anOpenDisplayIsNoReasonToAskBeforeAnotherDocument()
    {
        Program program;
        program.openDisplay();
        program.commands.action(Command::newBlankProject)->trigger();
        QVERIFY(program.questions.asked.isEmpty());
        QCOMPARE(program.store.project().name, u"Untitled Quenara"_s);
    }

    void askingAgainDuringAQuestionIsCancelled()
    {
        Program program;
        program.store.updateProjectName(u"Easter"_s);
        program.questions.answer = LeaveAnswer::proceed;
        program.questions.meanwhile = [&program] {
            program.commands.action(Command::newBlankProject)->trigger();
            program.window.close();
        };
        const WorkspaceState before = program.store.state();
        program.questions.answer = LeaveAnswer::cancel;
        program.commands.action(Command::quit)->trigger();
        QCOMPARE(program.questions.asked.size(), 1);
        QCOMPARE(program.store.state(), before);
        QVERIFY(program.window.isVisible());
    }

    void openRecentOffersTheListNewestFirst()
    {
        Program program;
        program.store.openProject(QUrl::fromLocalFile(dataPath(u"current.quenara"_s)));
        QStringList paths;
        for (const QAction *item : program.recentItems())
            paths.append(item->toolTip());
        QCOMPARE(paths,
                 (QStringList{dataPath(u"current.quenara"_s),
                              program.fileUrl(u"first.quenara"_s).toLocalFile()}));
        QVERIFY(program.recentItems().constFirst()->text().startsWith(program.store.project().name
                                                                      + u" \u2014 "_s));
        program.recentItems().at(1)->trigger();
        QCOMPARE(program.store.currentFileURL(), program.fileUrl(u"first.quenara"_s));
    }

    void openRecentShowsAnAmpersandOfAName()
    {
        Program program;
        program.store.updateProjectName(u"Bread & Wine"_s);
        program.store.saveProject();
        QVERIFY(program.recentItems().constFirst()->text().startsWith(u"Bread && Wine"_s));
    }

    void openRecentIsOutOfReachWithoutProjects()
    {
        WindowingWorld world;
        const OperatorWindow window(world.store, world.windows, world.guard, world.commands,
                                    world.menus, world.caches);
        const QAction *item = openRecentMenu(window).menuAction();
        QVERIFY(!item->isEnabled());
        world.panels.answer = world.fileUrl(u"first.quenara"_s);
        world.store.saveProject();
        QTRY_VERIFY(item->isEnabled());
    }
};

QUENARA_GUI_TEST(TestDocumentGuard)

} // namespace tst_document_guard

#include "tst_document_guard.moc"
