#include "CommandWorld.h"
#include "GuiTestSupport.h"

#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QRegularExpression>
#include <QSignalSpy>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_command_actions {

namespace {

using Commands = QList<Command>;

/// All commands whose description says that \a holds.
Commands commandsThat(bool CommandDescription::*holds)
{
    Commands found;
    for (const CommandDescription &description : commandDescriptions()) {
        if (description.*holds)
            found.append(description.command);
    }
    return found;
}

QString titleOf(Command command)
{
    return QString::fromUtf8(descriptionOf(command).title);
}

/// The rows of the guide's table of keys, each with the keys that it names.
QList<QStringList> rowsOfTheGuide()
{
    QFile readme(QStringLiteral(README_PATH));
    if (!readme.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(readme.readAll());
    const qsizetype table = text.indexOf(u"| key |"_s);
    QList<QStringList> rows;
    for (const QString &line : text.mid(table, text.indexOf(u"\n\n"_s, table) - table).split(u'\n'))
        rows.append(line.section(u'|', 1, 1).trimmed().split(u", "_s));
    return rows.mid(2); // below the heading and its line
}

/// The name that the guide has for \a key.
QString guideName(const char *key)
{
    QString name = QString::fromUtf8(key);
    return name.replace(u"PgDown"_s, u"Page Down"_s).replace(u"PgUp"_s, u"Page Up"_s);
}

} // namespace

class TestCommandActions : public GuiTest
{
    Q_OBJECT

private slots:
    void everyCommandDoesSomethingAndTellsWhetherItIsOnIfItsTitleDoes()
    {
        for (const CommandDescription &command : commandDescriptions()) {
            QVERIFY2(command.run, command.title);
            QVERIFY2(!command.titleWhileOn || command.isOn, command.title);
        }
    }

    void theGuideNamesEveryKeyOnceAndNoOther()
    {
        QStringList named;
        for (const QStringList &row : rowsOfTheGuide())
            named += row;
        QStringList keys;
        for (const CommandDescription &description : commandDescriptions()) {
            for (const char *key : description.keys) {
                // The guide means the Enter key of the keypad, too, by Return.
                if (key && key != std::string_view("Enter"))
                    keys.append(guideName(key));
            }
        }
        QVERIFY(!keys.isEmpty());
        named.sort();
        keys.sort();
        QCOMPARE(named, keys);
    }

    void noTwoCommandsHaveTheSameKey()
    {
        const CommandWorld world;
        QList<QKeySequence> keys;
        for (const CommandDescription &description : commandDescriptions())
            keys += world.commands.action(description.command)->shortcuts();
        QCOMPARE(QSet<QKeySequence>(keys.cbegin(), keys.cend()).size(), keys.size());
    }

    void everyButtonsSymbolIsThere()
    {
        const CommandWorld world;
        for (const CommandDescription &description : commandDescriptions()) {
            const QString symbol = world.commands.action(description.command)->data().toString();
            QVERIFY2(symbol.isEmpty() || QFile::exists(u":/icons/%1.svg"_s.arg(symbol)),
                     qPrintable(symbol));
        }
    }

    void whatHasNothingToWorkOnIsDisabled()
    {
        CommandWorld world(showOf({1, 2, 1}));
        world.store.selectSlide(u"B1"_s, true);
        const QAction *fullScreen = world.commands.action(Command::toggleStageFullScreen);
        QVERIFY(!fullScreen->isEnabled());
        world.outputs.toggleStageWindow();
        QVERIFY(fullScreen->isEnabled());
        const auto disabled = [&] {
            Commands found;
            for (const CommandDescription &description : commandDescriptions()) {
                if (!world.commands.action(description.command)->isEnabled())
                    found.append(description.command);
            }
            return found;
        };
        QCOMPARE(disabled(), (Commands{Command::undo, Command::redo}));
        world.store.addSlide();
        QCOMPARE(disabled(), Commands{Command::redo});
        world.store.undo();
        world.store.selectSlide(u"B1"_s, true);
        QCOMPARE(disabled(), Commands{Command::undo});
        world.store.newBlankProject();
        QCOMPARE(disabled(),
                 (Commands{Command::exportShow, Command::undo, Command::redo, Command::cut,
                           Command::copy, Command::duplicate, Command::deleteSelected,
                           Command::goToSlide, Command::stepSlideUp, Command::stepSlideDown,
                           Command::stepSectionUp, Command::stepSectionDown, Command::addTextLayer,
                           Command::addLyricLayer, Command::addImageLayer}));
    }

    void whatMovesASlideOrASectionIsDisabledAtTheEndsOfTheRundown_data()
    {
        QTest::addColumn<QString>("selected");
        QTest::addColumn<Commands>("possible");
        using enum Command;
        QTest::newRow("the first slide") << u"A1"_s << Commands{stepSlideDown, stepSectionDown};
        QTest::newRow("the last slide of the first section")
            << u"A2"_s << Commands{stepSlideUp, stepSlideDown, stepSectionDown};
        QTest::newRow("a section between others")
            << u"B1"_s << Commands{stepSlideUp, stepSlideDown, stepSectionUp, stepSectionDown};
        QTest::newRow("the first slide of the last section")
            << u"C1"_s << Commands{stepSlideUp, stepSlideDown, stepSectionUp};
        QTest::newRow("the last slide") << u"C2"_s << Commands{stepSlideUp, stepSectionUp};
    }

    void whatMovesASlideOrASectionIsDisabledAtTheEndsOfTheRundown()
    {
        QFETCH(QString, selected);
        CommandWorld world(showOf({2, 1, 2}));
        world.store.selectSlide(selected, true);
        Commands possible;
        for (const Command command : {Command::stepSlideUp, Command::stepSlideDown,
                                      Command::stepSectionUp, Command::stepSectionDown}) {
            if (world.commands.action(command)->isEnabled())
                possible.append(command);
        }
        QTEST(possible, "possible");
    }

    void aSectionThatIsMovedStaysSelectedBesideTheSlideOfAnother()
    {
        CommandWorld world(showOf({1, 1, 1, 1}));
        world.store.selectServiceItem(u"B"_s);
        for (int i = 0; i < 2; ++i)
            world.commands.action(Command::stepSectionDown)->trigger();
        QCOMPARE(world.store.project().serviceItems.constLast().id, u"B"_s);
        QCOMPARE(world.store.selectedServiceItemID(), u"B"_s);
        QCOMPARE(world.store.selectedSlideID(), u"A1"_s);
        QVERIFY(!world.commands.action(Command::stepSectionDown)->isEnabled());
    }

    void copyingNamesWhatWasSelectedLastAndNeedsIt()
    {
        CommandWorld world(showOf({2, 1}));
        const auto titles = [&] {
            QStringList found;
            for (const Command command :
                 {Command::cut, Command::copy, Command::duplicate, Command::deleteSelected}) {
                const QAction *action = world.commands.action(command);
                found.append(action->isEnabled() ? action->text() : QString());
            }
            return found.join(u", "_s);
        };
        QCOMPARE(titles(), u"Cut Slide, Copy Slide, Duplicate Slide, Delete Slide"_s);
        world.store.selectElement(u"A1.line"_s);
        QCOMPARE(titles(), u"Cut Layer, Copy Layer, Duplicate Layer, Delete Layer"_s);
        world.store.nextLive();
        QCOMPARE(titles(), u"Cut Slide, Copy Slide, Duplicate Slide, Delete Slide"_s);
        world.store.selectServiceItem(u"B"_s);
        QCOMPARE(titles(), u", , , "_s);
        world.store.selectElement(u"A2.line"_s);
        world.store.deleteSelectedElement();
        world.store.deleteSelectedElement();
        QVERIFY(world.store.slideWithID(u"A2"_s)->design.elements.isEmpty());
        QCOMPARE(titles(), u", , , "_s);
    }

    void whatIsSwitchedOnIsToldAndTitlesFollow()
    {
        CommandWorld world;
        const auto on = [&] {
            Commands found;
            for (const CommandDescription &description : commandDescriptions()) {
                if (description.isOn && world.commands.isOn(description.command))
                    found.append(description.command);
            }
            return found;
        };
        const QAction *display = world.commands.action(Command::toggleDisplayWindow);
        QSignalSpy switched(&world.commands, &CommandActions::switched);
        QCOMPARE(on(), Commands{});
        QCOMPARE(display->text(), u"Open Display Window"_s);
        world.commands.perform(Command::toggleBlackout);
        QCOMPARE(on(), Commands{Command::toggleBlackout});
        QVERIFY(!switched.isEmpty());
        switched.clear();
        world.outputs.toggleDisplayWindow();
        QCOMPARE(on(), (Commands{Command::toggleBlackout, Command::toggleDisplayWindow}));
        QVERIFY(!switched.isEmpty());
        QCOMPARE(display->text(), u"Close Display Window"_s);
        QCOMPARE(display->iconText(), u"Display"_s);
    }

    void whatDropsTheDocumentAsksBefore_data()
    {
        QTest::addColumn<Command>("command");
        const Commands dropping = commandsThat(&CommandDescription::dropsDocument);
        QCOMPARE(dropping.size(), 4);
        for (const Command command : dropping)
            QTest::newRow(qPrintable(titleOf(command))) << command;
    }

    void whatDropsTheDocumentAsksBefore()
    {
        QFETCH(Command, command);
        CommandWorld world(showOf({1}));
        const QSignalSpy released(&world.commands, &CommandActions::documentReleased);
        const WorkspaceState before = world.store.state();
        world.mayReplaceDocument = false;
        world.commands.action(command)->trigger();
        QCOMPARE(world.consentCount, 1);
        QCOMPARE(world.store.state(), before);
        QVERIFY(world.panels.asked.isEmpty());
        QVERIFY(released.isEmpty());

        world.mayReplaceDocument = true;
        world.commands.action(command)->trigger();
        QCOMPARE(world.consentCount, 2);
        QVERIFY(world.store.state() != before || !world.panels.asked.isEmpty());
        QCOMPARE(released.size(), 1);
    }

    void aProjectFromAListAsksBeforeItOpensToo()
    {
        CommandWorld world(showOf({1}));
        const QUrl url = QUrl::fromLocalFile(dataPath(u"current.quenara"_s));
        world.mayReplaceDocument = false;
        world.commands.openProject(url);
        QCOMPARE(world.store.currentFileURL(), std::nullopt);
        world.mayReplaceDocument = true;
        world.commands.openProject(url);
        QCOMPARE(world.store.currentFileURL(), url);
        QCOMPARE(world.consentCount, 2);
    }

    void nothingElseAsks()
    {
        CommandWorld world(showOf({2}));
        for (const CommandDescription &description : commandDescriptions()) {
            if (!description.dropsDocument)
                world.commands.action(description.command)->trigger();
        }
        QCOMPARE(world.consentCount, 0);
    }

    void whileADialogAsksOnlyTheServiceGoesOn()
    {
        CommandWorld world(showOf({2}));
        world.store.addSlide();
        world.store.selectSlide(u"A1"_s, true);
        QDialog dialog;
        dialog.open();
        QCOMPARE(QApplication::activeModalWidget(), &dialog);
        const ZelvoProject project = world.store.project();
        const QSignalSpy quit(&world.commands, &CommandActions::quitRequested);
        for (const CommandDescription &description : commandDescriptions()) {
            if (description.worksOnDocument)
                world.commands.action(description.command)->trigger();
        }
        world.commands.openProject(QUrl::fromLocalFile(dataPath(u"current.quenara"_s)));
        QCOMPARE(world.store.project(), project);
        QVERIFY(!world.store.isStartPanelPresented());
        QVERIFY(!world.store.isSongImportPresented());
        QVERIFY(world.panels.asked.isEmpty());
        QVERIFY(quit.isEmpty());

        world.commands.perform(Command::queueNext);
        world.commands.perform(Command::goLive);
        QCOMPARE(world.store.liveSlideID(), u"A2"_s);
        world.commands.perform(Command::toggleDisplayWindow);
        QVERIFY(world.outputs.isDisplayWindowOpen());
    }

    void aSheetGivesTheCommandsThatItOffers()
    {
        CommandWorld world(showOf({2}));
        QDialog sheet;
        sheet.open();
        world.commands.perform(Command::newSundayService, &sheet);
        QCOMPARE(world.store.project().name, u"Sunday Service"_s);
        QDialog question(&sheet);
        question.open();
        world.commands.perform(Command::newBlankProject, &sheet);
        QCOMPARE(world.store.project().name, u"Sunday Service"_s);
    }

    void theFieldKeepsTheKeyboardThroughSavingUndoRedoAndTheMonitorAlone()
    {
        QCOMPARE(commandsThat(&CommandDescription::continuesTyping),
                 (Commands{Command::save, Command::undo, Command::redo,
                           Command::toggleStageFullScreen}));
        CommandWorld world(showOf({2}));
        QWidget window;
        window.setFocusPolicy(Qt::ClickFocus);
        auto *field = new QLineEdit(&window);
        showActive(window);
        for (const Command command : {Command::save, Command::nextLive}) {
            field->setFocus();
            world.commands.perform(command);
            QCOMPARE(field->hasFocus(), command == Command::save);
        }
    }

    void eachDoesItsWork_data()
    {
        QTest::addColumn<Command>("command");
        QTest::addColumn<std::function<void(WorkspaceStore &)>>("operation");
        const auto row = [](Command command, const std::function<void(WorkspaceStore &)> &same) {
            QTest::newRow(qPrintable(titleOf(command))) << command << same;
        };
        using Store = WorkspaceStore;
        row(Command::newProject, &Store::showStartPanel);
        row(Command::undo, &Store::undo);
        row(Command::goLive, &Store::goLive);
        QTest::newRow("Go Live by Return")
            << Command::goLiveByReturn << std::function<void(Store &)>(&Store::goLive);
        row(Command::nextLive, &Store::nextLive);
        row(Command::previousLive, &Store::previousLive);
        row(Command::queueNext, &Store::queueNext);
        row(Command::queuePrevious, &Store::queuePrevious);
        row(Command::toggleBlackout, &Store::toggleBlackout);
        row(Command::toggleLogo, &Store::toggleLogo);
        row(Command::pasteSongLyrics, [](Store &store) { store.setSongImportPresented(true); });
        row(Command::deleteSlide, &Store::deleteSelectedSlide);
        row(Command::deleteSelected, &Store::deleteSelectedSlide);
        row(Command::cut, &Store::deleteSelectedSlide);
        row(Command::moveSlideUp, [](Store &store) { store.moveSelectedSlide(-1); });
        row(Command::moveSlideDown, [](Store &store) { store.moveSelectedSlide(1); });
        row(Command::stepSlideUp, [](Store &store) { store.stepSelectedSlide(-1); });
        row(Command::stepSlideDown, [](Store &store) { store.stepSelectedSlide(1); });
        row(Command::moveSectionUp, [](Store &store) { store.moveSelectedServiceItem(-1); });
        row(Command::moveSectionDown, [](Store &store) { store.moveSelectedServiceItem(1); });
        row(Command::deleteSection, &Store::deleteSelectedServiceItem);
    }

    void eachDoesItsWork()
    {
        QFETCH(Command, command);
        QFETCH(std::function<void(WorkspaceStore &)>, operation);
        const ZelvoProject show = showOf({2, 3, 2});
        CommandWorld performed(show);
        World called(show);
        for (WorkspaceStore *store : {&performed.store, &called.store}) {
            store->selectSlide(u"B2"_s, true);
            store->goLive();
            store->updateProjectName(u"changed"_s);
            store->selectSlide(u"B2"_s, false);
            store->queueNext();
            store->selectSlide(u"B2"_s, false);
        }
        const WorkspaceState before = performed.store.state();
        performed.commands.action(command)->trigger();
        operation(called.store);
        QCOMPARE(performed.store.state(), called.store.state());
        QVERIFY(performed.store.state() != before);
    }

    void whatMakesSomethingNewMakesIt()
    {
        CommandWorld world(showOf({2}));
        const auto item = [&](qsizetype place) {
            return world.store.project().serviceItems.at(place);
        };
        world.commands.perform(Command::duplicateSlide);
        QCOMPARE(item(0).slides.at(1).title, u"Title of A1 Copy"_s);
        world.commands.perform(Command::addSlide);
        QCOMPARE(item(0).slides.size(), 4);
        world.commands.perform(Command::addSection);
        QCOMPARE(item(1).type, ServiceItemType::custom);
        world.commands.perform(Command::undo);
        QCOMPARE(world.store.project().serviceItems.size(), 1);
        world.commands.perform(Command::redo);
        QCOMPARE(world.store.project().serviceItems.size(), 2);
        world.store.selectSlide(u"A1"_s, true);
        world.commands.perform(Command::addTextLayer);
        QCOMPARE(world.store.selectedElement()->kind, SlideElementKind::text);
        world.commands.perform(Command::addLyricLayer);
        QCOMPARE(world.store.selectedElement()->kind, SlideElementKind::songLyricText);
        world.commands.perform(Command::addImageLayer);
        QCOMPARE(world.panels.asked.size(), 1);
    }

    void filesAreAskedForAndWritten()
    {
        CommandWorld world(showOf({1}));
        world.commands.perform(Command::saveAs);
        QCOMPARE(world.panels.asked.constLast().kind, FilePanel::Kind::save);
        world.panels.answer = world.fileUrl(u"service.quenara"_s);
        world.commands.perform(Command::save);
        QVERIFY(QFile::exists(world.panels.answer->toLocalFile()));
        world.commands.perform(Command::open);
        QCOMPARE(world.panels.asked.constLast().kind, FilePanel::Kind::open);
        world.commands.perform(Command::openDemoService);
        QCOMPARE(world.store.project().name, u"Quenara Demo Service"_s);
    }

    void theProgramsWindowsAreAskedForWhatIsTheirs()
    {
        CommandWorld world;
        const QSignalSpy quit(&world.commands, &CommandActions::quitRequested);
        const QSignalSpy settings(&world.commands, &CommandActions::settingsRequested);
        const QSignalSpy exports(&world.commands, &CommandActions::exportRequested);
        const QSignalSpy about(&world.commands, &CommandActions::aboutRequested);
        world.commands.perform(Command::quit);
        world.commands.perform(Command::settings);
        world.commands.perform(Command::exportShow);
        world.commands.perform(Command::about);
        world.commands.perform(Command::toggleStageWindow);
        QCOMPARE(quit.size(), 1);
        QCOMPARE(settings.size(), 1);
        QCOMPARE(exports.size(), 1);
        QCOMPARE(about.size(), 1);
        QVERIFY(world.outputs.isStageWindowOpen());
    }
};

QUENARA_GUI_TEST(TestCommandActions)

} // namespace tst_command_actions

#include "tst_command_actions.moc"
