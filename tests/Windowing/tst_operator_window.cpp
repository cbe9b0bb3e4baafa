#include "GoToSlideSheet.h"
#include "GuiTestSupport.h"
#include "StartPanelView.h"
#include "WindowingWorld.h"

#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>

using namespace quenara;
using namespace quenara::test;

namespace tst_operator_window {

namespace {

struct Window : WindowingWorld
{
    OperatorWindow window{store, windows, guard, commands, menus, caches};

    Window() { showActive(window); }

    QMessageBox *alert() const { return visibleChild<QMessageBox>(); }
    StartPanelView *startPanel() const { return visibleChild<StartPanelView>(); }
    SongImportSheet *songImport() const { return visibleChild<SongImportSheet>(); }

    GoToSlideSheet *goToSlide() const { return visibleChild<GoToSlideSheet>(); }

    QString songTitle() const { return songImport()->findChild<QLineEdit *>()->text(); }
    void typeSongTitle(const QString &title) const
    {
        QTest::keyClicks(songImport()->findChild<QLineEdit *>(), title);
    }
    void pressInSongImport(const QString &button, const Caller &caller = Caller::current()) const
    {
        press(*songImport(), button, 0, caller);
    }

private:
    template<class Dialog>
    Dialog *visibleChild() const
    {
        for (auto *dialog : window.findChildren<Dialog *>()) {
            if (dialog->isVisible())
                return dialog;
        }
        return nullptr;
    }
};

} // namespace

class TestOperatorWindow : public GuiTest
{
    Q_OBJECT

private slots:
    void theTitleIsTheProjectsNameADashAndTheProductsName()
    {
        Window w;
        QCOMPARE(w.window.windowTitle(), QStringLiteral("Quenara Demo Service \u2014 Quenara"));
        w.store.updateProjectName(QStringLiteral("Easter"));
        QCOMPARE(w.window.windowTitle(), QStringLiteral("Easter \u2014 Quenara"));
        w.store.updateProjectName(QStringLiteral("[*]") + QChar::Null + QStringLiteral("Easter"));
        QCOMPARE(w.window.windowTitle(), QStringLiteral("[*][*]Easter \u2014 Quenara"));
        for (const QString &empty : {QString(), QStringLiteral(" \n\t "), QString(QChar::Null)}) {
            w.store.updateProjectName(empty);
            QCOMPARE(w.window.windowTitle(), QStringLiteral("Untitled \u2014 Quenara"));
        }
    }

    void theContentIsNeverSmallerThanItsMinimumAndOpensAtItsDefault()
    {
        Window w;
        QVERIFY(w.window.size().width() >= 1480);
        w.window.resize(10, 10);
        QVERIFY(w.window.centralWidget()->width() >= 1180);
        QVERIFY(w.window.centralWidget()->height() >= 760);
    }

    void theFirstKeyGoesToTheShowAndNotIntoTheProjectsName()
    {
        Window w;
        w.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&w.window));
        QVERIFY(QApplication::focusWidget());
        QVERIFY(!QApplication::focusWidget()->testAttribute(Qt::WA_InputMethodEnabled));
    }

    void aFailureIsShownAsAnAlertAndOkClearsIt()
    {
        Window w;
        w.store.openProject(w.fileUrl(QStringLiteral("missing.quenara")));
        QVERIFY(w.alert());
        QCOMPARE(w.alert()->text(), QStringLiteral("Quenara could not read that file."));
        QTest::mouseClick(w.alert()->button(QMessageBox::Ok), Qt::LeftButton);
        QVERIFY(!w.alert());
        QVERIFY(!w.store.errorMessage());
    }

    void whatIsPresentedBeforeTheWindowIsShownOpensOverIt()
    {
        WindowingWorld world;
        OperatorWindow window(world.store, world.windows, world.guard, world.commands, world.menus,
                              world.caches);
        world.store.openProject(world.fileUrl(QStringLiteral("missing.quenara")));
        QVERIFY(window.findChildren<QMessageBox *>().isEmpty());
        showActive(window);
        QTRY_COMPARE(window.findChildren<QMessageBox *>().size(), 1);
        QVERIFY(window.findChild<QMessageBox *>()->isVisible());
    }

    void anAlertOpensAndStaysInTheMiddleOfTheWindow()
    {
        Window w;
        w.store.openProject(w.fileUrl(QStringLiteral("missing.quenara")));
        const auto isAmid = [&w] {
            const QPoint off = w.alert()->geometry().center() - w.window.geometry().center();
            return off.manhattanLength() <= 2;
        };
        QVERIFY(isAmid());
        w.window.move(60, 40);
        QTRY_VERIFY(isAmid());
        w.window.resize(w.window.size() + QSize(100, 80));
        QTRY_VERIFY(isAmid());
        w.window.showMaximized();
        QTRY_VERIFY(isAmid());
        w.window.showNormal();
        QTRY_VERIFY(isAmid());
        w.window.move(w.window.screen()->geometry().right() + 100, 40);
        QTRY_VERIFY(isAmid());
    }

    void anAlertStaysOnTheScreenWhenItsWindowLeavesIt()
    {
        Window w;
        w.store.openProject(w.fileUrl(QStringLiteral("missing.quenara")));
        const QRect screen = w.window.screen()->availableGeometry();
        for (const QPoint &place : {QPoint(-1400, 60), QPoint(60, 1060), QPoint(60, -880)}) {
            w.window.move(place);
            QTRY_VERIFY(w.window.pos() == place);
            QTRY_VERIFY(screen.contains(w.alert()->frameGeometry()));
        }
    }

    void aSecondFailureIsShownInTheSameAlert()
    {
        Window w;
        w.store.openProject(w.fileUrl(QStringLiteral("missing.quenara")));
        w.store.openProject(w.written(QStringLiteral("wrong.quenara"), "[]"));
        QCOMPARE(w.window.findChildren<QMessageBox *>().size(), 1);
        QCOMPARE(w.alert()->windowTitle(), QStringLiteral("Quenara"));
        QCOMPARE(w.alert()->text(),
                 QStringLiteral("That file does not look like a Quenara project."));
        QCOMPARE(w.alert()->buttons().size(), 1);
        QTest::keyClick(w.alert(), Qt::Key_Return);
        QVERIFY(!w.alert());
        QVERIFY(!w.store.errorMessage());
    }

    void dismissingTheAlertInAnotherWayClearsItToo()
    {
        Window w;
        w.store.openProject(w.fileUrl(QStringLiteral("missing.quenara")));
        QTest::keyClick(w.alert(), Qt::Key_Escape);
        QVERIFY(!w.alert());
        QVERIFY(!w.store.errorMessage());
        w.store.openProject(w.fileUrl(QStringLiteral("missing.quenara")));
        QVERIFY(w.alert());
    }

    void theStartPanelIsShownWhileItIsPresented()
    {
        Window w;
        w.store.showStartPanel();
        QVERIFY(w.startPanel());
        QTest::keyClick(w.startPanel(), Qt::Key_Escape);
        QVERIFY(!w.startPanel());
        QVERIFY(!w.store.isStartPanelPresented());
        w.store.showStartPanel();
        QVERIFY(w.startPanel());
        w.store.newBlankProject();
        QVERIFY(!w.startPanel());
    }

    void theSongImportIsShownWhileItIsPresented()
    {
        Window w;
        w.store.setSongImportPresented(true);
        QVERIFY(w.songImport());
        QCOMPARE(w.songImport()->windowModality(), Qt::WindowModal);
        QCOMPARE(w.songImport()->parentWidget(), &w.window);
        QTest::keyClick(w.songImport(), Qt::Key_Escape);
        QVERIFY(!w.songImport());
        QVERIFY(!w.store.isSongImportPresented());
        w.store.setSongImportPresented(true);
        QVERIFY(w.songImport());
        w.store.setSongImportPresented(false);
        QVERIFY(!w.songImport());
    }

    void theSearchForASlideStandsOverTheRundownAndOpensOnce()
    {
        Window w;
        QAction *goToSlide = w.commands.action(Command::goToSlide);
        goToSlide->trigger();
        const QPointer<GoToSlideSheet> sheet = w.goToSlide();
        QVERIFY(sheet);
        QCOMPARE(sheet->windowModality(), Qt::WindowModal);
        const QWidget &rundown = named(w.window, QStringLiteral("Rundown"));
        QVERIFY(sheet->geometry().intersects(
            {rundown.mapToGlobal(QPoint()), rundown.mapToGlobal(rundown.rect().bottomRight())}));
        QVERIFY(sheet->geometry().center().x() < w.window.geometry().center().x());
        w.commands.perform(Command::goToSlide);
        QCOMPARE(w.goToSlide(), sheet.data());
        QTest::keyClick(sheet, Qt::Key_Escape);
        QVERIFY(!w.goToSlide());
        goToSlide->trigger();
        QVERIFY(w.goToSlide());
    }

    void thereIsNothingToLookForInAnEmptyShow()
    {
        Window w;
        w.store.newBlankProject();
        QCOMPARE(w.commands.action(Command::goToSlide)->isEnabled(),
                 !w.store.flattenedSlides().isEmpty());
        while (!w.store.flattenedSlides().isEmpty())
            w.store.deleteSelectedSlide();
        QVERIFY(!w.commands.action(Command::goToSlide)->isEnabled());
    }

    void theSongImportKeepsItsTextsUntilTheyAreImported()
    {
        Window w;
        w.store.setSongImportPresented(true);
        w.typeSongTitle(QStringLiteral("Evening Hymn"));
        w.pressInSongImport(QStringLiteral("Cancel"));
        QVERIFY(!w.store.isSongImportPresented());
        w.store.setSongImportPresented(true);
        QCOMPARE(w.songTitle(), QStringLiteral("Evening Hymn"));
        w.pressInSongImport(QStringLiteral("Import Song"));
        QVERIFY(!w.store.isSongImportPresented());
        QCOMPARE(w.store.project().serviceItems.constLast().title, QStringLiteral("Evening Hymn"));
        w.store.setSongImportPresented(true);
        QCOMPARE(w.songTitle(), QString());
    }

    void keysTypedIntoTheSongImportChangeNothingLive()
    {
        Window w;
        w.store.toggleLogo();
        const Selection before = selectionOf(w.store.state());
        w.store.setSongImportPresented(true);
        w.songImport()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(w.songImport()));
        for (auto *field : QWidgetList{w.songImport()->findChild<QLineEdit *>(),
                                       w.songImport()->findChild<QPlainTextEdit *>()}) {
            field->setFocus();
            for (const Qt::Key key :
                 {Qt::Key_B, Qt::Key_L, Qt::Key_Space, Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,
                  Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Return})
                QTest::keyClick(w.songImport()->windowHandle(), key);
        }
        QCOMPARE(w.songTitle(), QStringLiteral("bl "));
        QVERIFY(w.songImport()->findChild<QPlainTextEdit *>()->toPlainText().contains(
            QStringLiteral("bl ")));
        QCOMPARE(selectionOf(w.store.state()), before);
        QCOMPARE(w.store.outputMode(), OutputMode::logo);
    }

    void aboutTellsTheVersionAndWhoseWorkIsInTheProgram()
    {
        QApplication::setApplicationVersion(QStringLiteral("1.2.3"));
        Window w;
        w.commands.action(Command::about)->trigger();
        QVERIFY(w.alert());
        QCOMPARE(w.alert()->windowModality(), Qt::WindowModal);
        QCOMPARE(w.alert()->text(), QStringLiteral("Quenara 1.2.3"));
        for (const char *work : {"Qt 6", "Inter", "Lato", "Bootstrap Icons"})
            QVERIFY(w.alert()->informativeText().contains(QLatin1String(work)));
        QTest::mouseClick(w.alert()->button(QMessageBox::Ok), Qt::LeftButton);
        QVERIFY(!w.alert());
    }

    void closingTheOperatorWindowClosesTheOutputWindows()
    {
        Window w;
        w.openDisplay();
        w.openStage();
        w.questions.answer = LeaveAnswer::proceed;
        w.window.close();
        QVERIFY(!w.windows.isDisplayWindowOpen());
        QVERIFY(!w.windows.isStageWindowOpen());
    }
};

QUENARA_GUI_TEST(TestOperatorWindow)

} // namespace tst_operator_window

#include "tst_operator_window.moc"
