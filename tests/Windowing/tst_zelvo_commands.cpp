#include "BareKeys.h"
#include "GuiTestSupport.h"
#include "ProgramWindows.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_zelvo_commands {

namespace {

QString menuText(const QMenu &menu)
{
    QStringList lines;
    for (const QAction *action : menu.actions()) {
        QStringList shortcuts;
        for (const QKeySequence &shortcut : action->shortcuts())
            shortcuts.append(shortcut.toString(QKeySequence::PortableText));
        lines.append(action->isSeparator()
                         ? QStringLiteral("-")
                         : action->text() + QLatin1Char('|') + shortcuts.join(QLatin1Char(' ')));
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

class TestZelvoCommands : public GuiTest
{
    Q_OBJECT

private slots:
    void theMenusHoldTheirItemsInOrder()
    {
        ProgramWindows program;
        const QList<QAction *> menus = program.operatorWindow.menuBar()->actions();
        QCOMPARE(menus.size(), 5);
        QCOMPARE(
            menuText(*menus.at(0)->menu()),
            QStringLiteral("New Project...|Ctrl+N\nNew Blank Project|\nNew Sunday Service|\n-\n"
                           "Open...|Ctrl+O\nOpen Recent|\nSave|Ctrl+S\nSave As...|Ctrl+Shift+S\n-\n"
                           "Export...|Ctrl+Shift+E\n-\nQuit|Ctrl+Q"));
        QCOMPARE(menuText(*menus.at(1)->menu()),
                 QStringLiteral("Undo|Ctrl+Z\nRedo|Ctrl+Shift+Z\n-\n"
                                "Cut Slide|Ctrl+X\nCopy Slide|Ctrl+C\nPaste|Ctrl+V\n"
                                "Duplicate Slide|Ctrl+D\nDelete Slide|Del\n-\n"
                                "Move Slide Up|Alt+Up\nMove Slide Down|Alt+Down\n"
                                "Move Section Up|Alt+Shift+Up\nMove Section Down|Alt+Shift+Down\n"
                                "-\nSettings...|Ctrl+,"));
        QCOMPARE(menuText(*menus.at(2)->menu()),
                 QStringLiteral("Go Live|Space\nGo Live|Return Enter\n-\n"
                                "Next Live Slide|Right PgDown\nPrevious Live Slide|Left PgUp\n"
                                "Queue Next|Down\nQueue Previous|Up\n-\n"
                                "Go to Slide...|Ctrl+F\n-\n"
                                "Toggle Blackout|B\nToggle Logo|L"));
        QCOMPARE(menuText(*menus.at(3)->menu()),
                 QStringLiteral("Open Display Window|\nOpen Monitor Window|\n-\n"
                                "Fill Screen with Monitor|F11"));
        QCOMPARE(menuText(*menus.at(4)->menu()), QStringLiteral("About Quenara|"));
    }

    void everyCommandIsOfferedByAMenuOrAButton()
    {
        ProgramWindows program;
        program.store.showStartPanel();
        QSet<QString> offered;
        const auto menus = program.operatorWindow.menuBar()->findChildren<QMenu *>();
        for (const QMenu *menu : menus) {
            for (const QAction *action : menu->actions())
                offered.insert(action->text());
        }
        for (const auto *button : program.operatorWindow.findChildren<QAbstractButton *>()) {
            if (button->isVisible())
                offered |= {button->text(), button->accessibleName()};
        }
        offered.remove({});
        for (const CommandDescription &description : commandDescriptions()) {
            const QAction *action = program.commands.action(description.command);
            QVERIFY2(offered.contains(action->text()) || offered.contains(action->iconText()),
                     qPrintable(action->text()));
        }
    }

    void whatThePlatformHasAPlaceForGoesThere()
    {
        const ProgramWindows program;
        QCOMPARE(program.commands.action(Command::settings)->menuRole(), QAction::PreferencesRole);
        QCOMPARE(program.commands.action(Command::about)->menuRole(), QAction::AboutRole);
        QCOMPARE(program.commands.action(Command::quit)->menuRole(), QAction::QuitRole);
        // By its title alone, a platform would take this one for something else.
        QCOMPARE(program.commands.action(Command::save)->menuRole(), QAction::NoRole);
    }

    void undoAndRedoAreEnabledExactlyWhileThereIsSomethingToUndoOrRedo()
    {
        ProgramWindows program;
        const QAction *undo = program.commands.action(Command::undo);
        const QAction *redo = program.commands.action(Command::redo);
        QVERIFY(!undo->isEnabled());
        QVERIFY(!redo->isEnabled());
        program.store.addSlide();
        QVERIFY(undo->isEnabled());
        program.store.undo();
        QVERIFY(!undo->isEnabled());
        QVERIFY(redo->isEnabled());
        program.store.newBlankProject();
        QVERIFY(!redo->isEnabled());
    }

    void allOtherItemsAreAlwaysEnabled()
    {
        ProgramWindows program;
        program.store.newBlankProject();
        for (const QAction *menu : program.operatorWindow.menuBar()->actions()) {
            for (const QAction *item : menu->menu()->actions()) {
                bool needsSomething = item->text() == QStringLiteral("Open Recent");
                for (const Command command :
                     {Command::undo, Command::redo, Command::cut, Command::copy, Command::duplicate,
                      Command::deleteSelected, Command::goToSlide, Command::stepSlideUp,
                      Command::stepSlideDown, Command::stepSectionUp, Command::stepSectionDown,
                      Command::toggleStageFullScreen, Command::exportShow}) {
                    needsSomething = needsSomething || item == program.commands.action(command);
                }
                QCOMPARE(item->isEnabled(), !needsSomething);
            }
        }
    }

    void theWindowItemsSayWhatTheyWillDo()
    {
        ProgramWindows program;
        QAction *display = program.commands.action(Command::toggleDisplayWindow);
        QAction *stage = program.commands.action(Command::toggleStageWindow);
        display->trigger();
        stage->trigger();
        QVERIFY(program.windows.isDisplayWindowOpen());
        QCOMPARE(display->text(), QStringLiteral("Close Display Window"));
        QCOMPARE(stage->text(), QStringLiteral("Close Monitor Window"));
        // Closed by other means than the menu.
        program.windows.closeDisplayWindow();
        program.windows.stageWindow()->close();
        QCOMPARE(display->text(), QStringLiteral("Open Display Window"));
        QCOMPARE(stage->text(), QStringLiteral("Open Monitor Window"));
    }

    void transportKeysWorkInEveryWindow_data()
    {
        QTest::addColumn<QString>("window");
        QTest::newRow("operator window") << "operator";
        QTest::newRow("display window") << "display";
        QTest::newRow("stage window") << "stage";
    }

    void transportKeysWorkInEveryWindow()
    {
        QFETCH(QString, window);
        ProgramWindows program;
        program.openDisplay();
        program.openStage();
        QWidget *focused = &program.operatorWindow;
        if (window == QStringLiteral("display")) {
            focused = program.windows.displayWindow();
        } else if (window == QStringLiteral("stage")) {
            focused = program.windows.stageWindow();
        }
        program.settings.present(); // takes no key from the others
        ProgramWindows::activate(*focused);

        ProgramWindows::press(*focused, Qt::Key_Right);
        QCOMPARE(program.live(), 1);
        ProgramWindows::press(*focused, Qt::Key_PageDown);
        QCOMPARE(program.live(), 2);
        ProgramWindows::press(*focused, Qt::Key_Left);
        QCOMPARE(program.live(), 1);
        ProgramWindows::press(*focused, Qt::Key_PageUp);
        QCOMPARE(program.live(), 0);
        ProgramWindows::press(*focused, Qt::Key_Down);
        ProgramWindows::press(*focused, Qt::Key_Down);
        QCOMPARE(program.queued(), 2);
        QCOMPARE(program.live(), 0);
        ProgramWindows::press(*focused, Qt::Key_Space);
        QCOMPARE(program.live(), 2);
        ProgramWindows::press(*focused, Qt::Key_Up);
        QCOMPARE(program.queued(), 1);
        ProgramWindows::press(*focused, Qt::Key_Return);
        QCOMPARE(program.live(), 1);
        ProgramWindows::press(*focused, Qt::Key_B);
        QCOMPARE(program.store.outputMode(), OutputMode::blackout);
        ProgramWindows::press(*focused, Qt::Key_L);
        QCOMPARE(program.store.outputMode(), OutputMode::logo);
        ProgramWindows::press(*focused, Qt::Key_L);
        QCOMPARE(program.store.outputMode(), OutputMode::live);
    }

    void noTransportKeyWorksInTheSettings_data()
    {
        QTest::addColumn<bool>("isOnAChoice");
        QTest::newRow("as they open") << false;
        QTest::newRow("on a choice") << true;
    }

    void noTransportKeyWorksInTheSettings()
    {
        QFETCH(bool, isOnAChoice);
        ProgramWindows program;
        program.store.nextLive();
        program.store.queueNext();
        program.settings.present();
        ProgramWindows::activate(program.settings);
        if (isOnAChoice)
            program.settings.findChild<QPushButton *>()->setFocus(Qt::TabFocusReason);
        const Snapshot before = snapshotOf(program.store);
        for (const Qt::Key key : bareKeys()) {
            ProgramWindows::press(program.settings, key);
            QCOMPARE(snapshotOf(program.store), before);
            QVERIFY(program.settings.isVisible());
        }
    }

    void keysWithAModifierWorkInTheSettings()
    {
        ProgramWindows program;
        program.store.addSlide();
        program.settings.present();
        ProgramWindows::activate(program.settings);
        ProgramWindows::press(program.settings, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!program.store.canUndo());
        ProgramWindows::press(program.settings, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(program.store.canUndo());
        program.panels.answer = program.fileUrl(QStringLiteral("show.quenara"));
        ProgramWindows::press(program.settings, Qt::Key_S, Qt::ControlModifier);
        QVERIFY(!program.store.hasUnsavedChanges());
    }

    void anAlertOnTheOperatorWindowLeavesTheKeysToTheOtherWindows()
    {
        ProgramWindows program;
        program.openDisplay();
        program.store.toggleBlackout();
        program.store.openProject(program.fileUrl(QStringLiteral("missing.quenara")));
        OutputWindow &display = *program.windows.displayWindow();
        ProgramWindows::activate(display);
        ProgramWindows::press(display, Qt::Key_B);
        QCOMPARE(program.store.outputMode(), OutputMode::live);
        ProgramWindows::press(display, Qt::Key_Right);
        QCOMPARE(program.live(), 1);
    }

    void aKeyThatDismissesAnAlertSendsNothingLive()
    {
        ProgramWindows program;
        program.openDisplay();
        program.store.queueNext();
        program.store.openProject(program.fileUrl(QStringLiteral("missing.quenara")));
        auto *alert = program.operatorWindow.findChild<QMessageBox *>();
        ProgramWindows::activate(*alert);
        ProgramWindows::press(*alert, Qt::Key_Return);
        QVERIFY(!program.store.errorMessage());
        QCOMPARE(program.live(), 0);
    }

    void keysTypedIntoTextChangeNothingLive()
    {
        ProgramWindows program;
        auto *name = program.operatorWindow.findChild<QLineEdit *>(QStringLiteral("projectName"));
        name->setFocus();
        name->selectAll();
        for (const Qt::Key key :
             {Qt::Key_B, Qt::Key_L, Qt::Key_Space, Qt::Key_Space, Qt::Key_B, Qt::Key_Left,
              Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown})
            ProgramWindows::press(program.operatorWindow, key);
        QCOMPARE(name->text(), QStringLiteral("bl  b"));
        QCOMPARE(program.live(), 0);
        QCOMPARE(program.queued(), 0);
        QCOMPARE(program.store.outputMode(), OutputMode::live);
        ProgramWindows::press(program.operatorWindow, Qt::Key_Down);
        ProgramWindows::press(program.operatorWindow, Qt::Key_Return);
        QCOMPARE(program.store.project().name, QStringLiteral("bl  b"));
        QCOMPARE(program.live(), 0);
    }

    void aButtonReachedByTabIsPressedByControlAndSpace()
    {
        ProgramWindows program;
        program.store.loadDemoProject();
        named<QAbstractButton>(program.operatorWindow, QStringLiteral("Queue Next"))
            .setFocus(Qt::TabFocusReason);
        const qsizetype queued = program.queued();
        QTest::keyClick(program.operatorWindow.windowHandle(), Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(program.queued(), queued + 1);
        QCOMPARE(program.live(), queued);
        ProgramWindows::press(program.operatorWindow, Qt::Key_Space);
        QCOMPARE(program.queued(), queued + 1);
        QCOMPARE(program.live(), queued + 1);
    }

    void aTextThatWasLeftIsNotTypedIntoWhenItsWindowComesBack_data()
    {
        using Leave = std::function<void(ProgramWindows &)>;
        QTest::addColumn<Leave>("leave");
        const auto escape = [](ProgramWindows &program, const QString &name) {
            named<QLineEdit>(program.operatorWindow, name).setFocus();
            ProgramWindows::press(program.operatorWindow, Qt::Key_Escape);
        };
        QTest::newRow("the title")
            << Leave([escape](ProgramWindows &program) { escape(program, u"Title"_s); });
        QTest::newRow("the project's name")
            << Leave([escape](ProgramWindows &program) { escape(program, u"Project Name"_s); });
        QTest::newRow("a text on the canvas, by a slide that is sent meanwhile")
            << Leave([](ProgramWindows &program) {
                   program.openText(program.operatorWindow);
                   ProgramWindows::activate(program.settings);
                   ProgramWindows::press(program.settings, Qt::Key_Right);
               });
    }

    void aTextThatWasLeftIsNotTypedIntoWhenItsWindowComesBack()
    {
        QFETCH(std::function<void(ProgramWindows &)>, leave);
        ProgramWindows program;
        program.store.loadDemoProject();
        program.settings.show();
        ProgramWindows::activate(program.operatorWindow);
        leave(program);
        ProgramWindows::activate(program.settings);
        const ZelvoProject project = program.store.project();
        ProgramWindows::activate(program.operatorWindow);
        ProgramWindows::press(program.operatorWindow, Qt::Key_B);
        QCOMPARE(program.store.outputMode(), OutputMode::blackout);
        QVERIFY(program.store.project() == project);
    }

    void anEditorOfSeveralLinesKeepsItsKeys()
    {
        ProgramWindows program;
        QPlainTextEdit editor;
        editor.show();
        ProgramWindows::activate(editor);
        for (const Qt::Key key :
             {Qt::Key_B, Qt::Key_Return, Qt::Key_L, Qt::Key_Space, Qt::Key_Enter, Qt::Key_Up})
            ProgramWindows::press(editor, key);
        QCOMPARE(editor.toPlainText(), QStringLiteral("b\nl \n"));
        QCOMPARE(program.store.outputMode(), OutputMode::live);
    }

    void onlyUndoAndRedoRepeatWhileTheirKeyIsHeldDown()
    {
        const ProgramWindows program;
        for (const CommandDescription &item : commandDescriptions()) {
            QCOMPARE(program.commands.action(item.command)->autoRepeat(),
                     item.command == Command::undo || item.command == Command::redo);
        }
    }

    void whatIsStillBeingTypedIsSavedToo()
    {
        ProgramWindows program;
        auto *name = program.operatorWindow.findChild<QLineEdit *>(QStringLiteral("projectName"));
        name->setFocus();
        name->selectAll();
        QTest::keyClicks(name, QStringLiteral("Easter"));
        program.panels.answer = program.fileUrl(QStringLiteral("easter.quenara"));
        QTest::keyClick(name, Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(program.store.project().name, QStringLiteral("Easter"));
        QVERIFY(!program.store.hasUnsavedChanges());
    }

    void commandsDoTheirWork()
    {
        ProgramWindows program;
        program.commands.action(Command::newSundayService)->trigger();
        QCOMPARE(program.store.project().name, QStringLiteral("Sunday Service"));
        program.commands.action(Command::newBlankProject)->trigger();
        QCOMPARE(program.store.project().name, QStringLiteral("Untitled Quenara"));
        program.commands.action(Command::newProject)->trigger();
        QVERIFY(program.store.isStartPanelPresented());
        program.store.setStartPanelPresented(false);
        program.commands.action(Command::open)->trigger();
        QCOMPARE(program.panels.asked.constLast().title, QStringLiteral("Open Quenara Project"));
        program.commands.action(Command::saveAs)->trigger();
        QCOMPARE(program.panels.asked.constLast().title, QStringLiteral("Save Quenara Project"));
        program.store.addSlide();
        program.commands.action(Command::undo)->trigger();
        QVERIFY(program.store.project().serviceItems.isEmpty());
        program.commands.action(Command::redo)->trigger();
        QCOMPARE(program.store.project().serviceItems.size(), 1);
    }
};

QUENARA_GUI_TEST(TestZelvoCommands)

} // namespace tst_zelvo_commands

#include "tst_zelvo_commands.moc"
