#include "GuiTestSupport.h"
#include "StartPanelView.h"
#include "WindowingWorld.h"

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

using namespace quenara;
using namespace quenara::test;

namespace {

struct Window : WindowingWorld
{
    OperatorWindow window{store, windows, outputs, guard, commands, pictures};

    Window() { window.show(); }

    QMessageBox *alert() const { return visibleChild<QMessageBox>(); }
    StartPanelView *startPanel() const { return visibleChild<StartPanelView>(); }

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

QUENARA_GUI_TEST_MAIN(TestOperatorWindow)
#include "tst_operator_window.moc"
