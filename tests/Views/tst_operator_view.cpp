#include "GuiTestSupport.h"
#include "OperatorView.h"
#include "PictureCache.h"
#include "ShowListModel.h"
#include "SlideView.h"
#include "TestSupport.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>

using namespace quenara;
using namespace quenara::test;

namespace {

/// An operator view on a world of its own, shown.
struct Operator
{
    World world;
    PictureCache pictures;
    OperatorView view{world.store, pictures};
    QLineEdit *name = view.findChild<QLineEdit *>(QStringLiteral("projectName"));
    QListView *list = view.findChild<QListView *>(QStringLiteral("showList"));

    Operator()
    {
        view.resize(1180, 760);
        view.show();
        view.activateWindow();
        if (!QTest::qWaitForWindowActive(&view))
            qFatal("the view does not become active");
    }

    void clickRow(int row) const
    {
        const QPoint middle = list->visualRect(list->model()->index(row, 0)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, middle);
    }

    bool shows(const QString &text) const
    {
        const QList<QLabel *> labels = view.findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(), [&](const QLabel *label) {
            return label->isVisible() && label->text() == text;
        });
    }
};

} // namespace

class TestOperatorView : public GuiTest
{
    Q_OBJECT

private slots:
    void clickingASlideSelectsAndQueuesItAndNeverChangesTheLiveOne()
    {
        Operator op;
        const auto live = op.world.store.liveSlideID();
        op.clickRow(4);
        const QString verse = op.world.store.flattenedSlides().at(2).id();
        QCOMPARE(op.world.store.selectedSlideID(), verse);
        QCOMPARE(op.world.store.queuedSlideID(), verse);
        QCOMPARE(op.world.store.liveSlideID(), live);
    }

    void clickingAnItemsRowChangesNothing()
    {
        Operator op;
        const WorkspaceState before = op.world.store.state();
        op.clickRow(3);
        QCOMPARE(op.world.store.state(), before);
    }

    void theLivePreviewFollowsTheLiveSlide()
    {
        Operator op;
        op.world.store.nextLive();
        const auto *preview = op.view.findChild<SlideView *>();
        QCOMPARE(preview->slide(), op.world.store.slideWithID(op.world.store.liveSlideID()));
        QVERIFY(op.shows(QStringLiteral("Today")));
    }

    void theBadgeFollowsTheOutputMode()
    {
        Operator op;
        QVERIFY(op.shows(QStringLiteral("LIVE")));
        op.world.store.toggleBlackout();
        QVERIFY(op.shows(QStringLiteral("BLACKOUT")));
        op.world.store.toggleLogo();
        QVERIFY(op.shows(QStringLiteral("LOGO")));
    }

    void editedIsShownExactlyWhileThereAreUnsavedChanges()
    {
        Operator op;
        QVERIFY(!op.shows(QStringLiteral("Edited")));
        op.world.store.addSlide();
        QVERIFY(op.shows(QStringLiteral("Edited")));
        op.world.store.newBlankProject();
        QVERIFY(!op.shows(QStringLiteral("Edited")));
    }

    void aProjectThatWasNeverSavedSaysSoAndASavedOneShowsItsFileName()
    {
        Operator op;
        QVERIFY(op.shows(QStringLiteral("Unsaved project")));
        op.world.panels.answer = op.world.fileUrl(QStringLiteral("Sunday.quenara"));
        op.world.store.saveProject();
        QVERIFY(op.shows(QStringLiteral("Sunday.quenara")));
    }

    void theNameIsWrittenWhenEditingEndsAsOneUndoStep()
    {
        Operator op;
        QTest::mouseClick(op.name, Qt::LeftButton);
        op.name->selectAll();
        QTest::keyClicks(op.name, QStringLiteral("Easter"));
        QCOMPARE(op.world.store.project().name, QStringLiteral("Quenara Demo Service"));
        QTest::keyClick(op.name, Qt::Key_Return);
        QCOMPARE(op.world.store.project().name, QStringLiteral("Easter"));
        QVERIFY(!op.name->hasFocus());
        op.world.store.undo();
        QCOMPARE(op.world.store.project().name, QStringLiteral("Quenara Demo Service"));
        QCOMPARE(op.name->text(), QStringLiteral("Quenara Demo Service"));
        QVERIFY(!op.world.store.canUndo());
    }

    void escapePutsTheOldNameBack()
    {
        Operator op;
        QTest::mouseClick(op.name, Qt::LeftButton);
        QTest::keyClicks(op.name, QStringLiteral("xyz"));
        QTest::keyClick(op.name, Qt::Key_Escape);
        QCOMPARE(op.name->text(), QStringLiteral("Quenara Demo Service"));
        QVERIFY(!op.name->hasFocus());
        QVERIFY(!op.world.store.canUndo());
    }

    void leavingTheNameUnchangedMakesNoUndoStep()
    {
        Operator op;
        QTest::mouseClick(op.name, Qt::LeftButton);
        QTest::keyClick(op.name, Qt::Key_Return);
        QVERIFY(!op.world.store.canUndo());
    }

    void theListHasNoCursorOfItsOwnForKeysToMove()
    {
        Operator op;
        op.view.setFocus();
        for (int i = 0; i < 60; ++i)
            op.world.store.addSlide();
        const int scrolled = op.list->verticalScrollBar()->value();
        for (const Qt::Key key : {Qt::Key_Up, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_W})
            QTest::keyClick(op.view.windowHandle(), key);
        QVERIFY(!op.list->currentIndex().isValid());
        QCOMPARE(op.list->verticalScrollBar()->value(), scrolled);
    }

    void theNameOfAnotherProjectTakesThePlaceOfOneBeingTyped()
    {
        Operator op;
        QTest::mouseClick(op.name, Qt::LeftButton);
        QTest::keyClicks(op.name, QStringLiteral("xyz"));
        op.world.store.newSundayServiceProject();
        QCOMPARE(op.name->text(), QStringLiteral("Sunday Service"));
        QTest::keyClick(op.name, Qt::Key_Return);
        QCOMPARE(op.world.store.project().name, QStringLiteral("Sunday Service"));
    }

    void theCaptionOfTheLiveSlideSaysWhenTheAudienceDoesNotSeeIt()
    {
        Operator op;
        QVERIFY(op.shows(QStringLiteral("Live")));
        op.world.store.toggleBlackout();
        QVERIFY(op.shows(QStringLiteral("Blackout")));
        QVERIFY(!op.shows(QStringLiteral("Live")));
    }

    void theListStaysWhereItWasScrolledUntilTheSelectionChanges()
    {
        Operator op;
        for (int i = 0; i < 60; ++i)
            op.world.store.addSlide();
        op.list->verticalScrollBar()->setValue(0);
        op.world.store.toggleBlackout();
        QCOMPARE(op.list->verticalScrollBar()->value(), 0);
        op.world.store.queuePrevious();
        QVERIFY(op.list->verticalScrollBar()->value() > 0);
    }

    void keyboardTransportScrollsTheListAlong()
    {
        Operator op;
        for (int i = 0; i < 40; ++i)
            op.world.store.addSlide();
        op.world.store.previousLive();
        op.world.store.selectSlide(op.world.store.flattenedSlides().constLast().id(), true);
        const auto *model = qobject_cast<const ShowListModel *>(op.list->model());
        const QModelIndex index = model->indexOf(op.world.store.selectedSlideID());
        QVERIFY(op.list->viewport()->rect().contains(op.list->visualRect(index)));
        op.world.store.selectSlide(op.world.store.flattenedSlides().constFirst().id(), true);
        QVERIFY(op.list->viewport()->rect().contains(
            op.list->visualRect(model->indexOf(op.world.store.selectedSlideID()))));
    }
};

QUENARA_GUI_TEST_MAIN(TestOperatorView)
#include "tst_operator_view.moc"
