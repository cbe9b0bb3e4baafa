#include "GuiTestSupport.h"
#include "LayerListView.h"
#include "OperatorWorld.h"
#include "OutputModeBadge.h"
#include "ProjectFileService.h"
#include "RundownView.h"
#include "TransportView.h"

#include <QAbstractEventDispatcher>
#include <QLabel>
#include <QLineEdit>

using namespace quenara;
using namespace quenara::test;

namespace {

struct Operator : OperatorWorld
{
    QLineEdit *name = view.findChild<QLineEdit *>(QStringLiteral("projectName"));

    bool shows(const QString &text) const
    {
        const QList<QLabel *> labels = view.findChildren<QLabel *>();
        return std::any_of(labels.begin(), labels.end(), [&](const QLabel *label) {
            return label->isVisible() && label->text() == text;
        });
    }

    QString badge() const { return view.findChild<OutputModeBadge *>()->accessibleName(); }
};

/// How high a widget was each time it was painted.
class PaintedHeights : public QObject
{
public:
    QList<int> heights;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            heights.append(static_cast<QWidget *>(watched)->height());
        return false;
    }
};

} // namespace

class TestOperatorView : public GuiTest
{
    Q_OBJECT

private slots:
    void panelsHaveTheirSizes()
    {
        Operator op;
        op.view.resize(1480, 900);
        QCOMPARE(op.view.findChild<RundownView *>()->width(), 286);
        QCOMPARE(op.view.findChild<TransportView *>()->height(), 132);
        QCOMPARE(op.view.findChild<TransportView *>()->width(), 1480);
    }

    void theBadgeFollowsTheOutputMode()
    {
        Operator op;
        QCOMPARE(op.badge(), QStringLiteral("LIVE"));
        op.store.toggleBlackout();
        QCOMPARE(op.badge(), QStringLiteral("BLACKOUT"));
        op.store.toggleLogo();
        QCOMPARE(op.badge(), QStringLiteral("LOGO"));
    }

    void editedIsShownExactlyWhileThereAreUnsavedChanges()
    {
        Operator op;
        QVERIFY(!op.shows(QStringLiteral("Edited")));
        op.store.addSlide();
        QVERIFY(op.shows(QStringLiteral("Edited")));
        op.store.newBlankProject();
        QVERIFY(!op.shows(QStringLiteral("Edited")));
    }

    void aProjectThatWasNeverSavedSaysSoAndASavedOneShowsItsFileName()
    {
        Operator op;
        QVERIFY(op.shows(QStringLiteral("Unsaved project")));
        op.world.panels.answer = op.world.fileUrl(QStringLiteral("Sunday.quenara"));
        press(op.view, QStringLiteral("Save"));
        QVERIFY(op.shows(QStringLiteral("Sunday.quenara")));
    }

    void whatIsStillBeingTypedIsSavedToo()
    {
        Operator op;
        op.world.panels.answer = op.world.fileUrl(QStringLiteral("Sunday.quenara"));
        QTest::mouseClick(op.name, Qt::LeftButton);
        op.name->selectAll();
        QTest::keyClicks(op.name, QStringLiteral("Easter"));
        press(op.view, QStringLiteral("Save"));
        QCOMPARE(ProjectFileService::load(*op.world.panels.answer, someTime()).name,
                 QStringLiteral("Easter"));
        QVERIFY(!op.store.hasUnsavedChanges());
    }

    void whatAChangeMovesIsPaintedOnceAndWhereItBelongs()
    {
        Operator op;
        const auto *layers = op.view.findChild<LayerListView *>();
        const QList<FlattenedSlide> show = op.store.flattenedSlides();
        const auto layerCount = [](const FlattenedSlide &slide) {
            return slide.slide.design.elements.size();
        };
        const auto other = std::find_if(show.begin(), show.end(), [&](const FlattenedSlide &slide) {
            return layerCount(slide) != layerCount(show.first());
        });
        QVERIFY(other != show.end());
        PaintedHeights painted;
        op.view.findChild<LayerListView *>()->installEventFilter(&painted);
        op.store.selectSlide(other->id(), true);
        QTRY_VERIFY(!painted.heights.isEmpty());
        painted.heights.clear();
        op.store.selectSlide(show.first().id(), true);
        QTRY_VERIFY(!painted.heights.isEmpty());
        // A second painting would come with what is left to do.
        while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {}
        QCOMPARE(painted.heights, QList<int>{layers->height()});
    }

    void newPresentsTheStartPanel()
    {
        Operator op;
        press(op.view, QStringLiteral("New"));
        QVERIFY(op.store.isStartPanelPresented());
    }

    void openAsksForAFileUnlessTheDocumentIsToStay()
    {
        Operator op;
        op.world.mayReplaceDocument = false;
        press(op.view, QStringLiteral("Open"));
        QCOMPARE(op.world.panels.asked.size(), 0);
        op.world.mayReplaceDocument = true;
        press(op.view, QStringLiteral("Open"));
        QCOMPARE(op.world.panels.asked.size(), 1);
    }

    void theNameIsWrittenWhenEditingEndsAsOneUndoStep()
    {
        Operator op;
        QTest::mouseClick(op.name, Qt::LeftButton);
        op.name->selectAll();
        QTest::keyClicks(op.name, QStringLiteral("Easter"));
        QCOMPARE(op.store.project().name, QStringLiteral("Quenara Demo Service"));
        QTest::keyClick(op.name, Qt::Key_Return);
        QCOMPARE(op.store.project().name, QStringLiteral("Easter"));
        QVERIFY(!op.name->hasFocus());
        op.store.undo();
        QCOMPARE(op.store.project().name, QStringLiteral("Quenara Demo Service"));
        QCOMPARE(op.name->text(), QStringLiteral("Quenara Demo Service"));
        QVERIFY(!op.store.canUndo());
    }

    void leavingTheNameWritesIt_data()
    {
        QTest::addColumn<bool>("byRow");
        QTest::newRow("for a row of the rundown") << true;
        QTest::newRow("for a button") << false;
    }

    void leavingTheNameWritesIt()
    {
        QFETCH(bool, byRow);
        Operator op;
        QTest::mouseClick(op.name, Qt::LeftButton);
        op.name->selectAll();
        QTest::keyClicks(op.name, QStringLiteral("Easter"));
        if (byRow) {
            op.click(op.model->index(1));
        } else {
            press(op.view, QStringLiteral("Queue Next"));
        }
        QCOMPARE(op.store.project().name, QStringLiteral("Easter"));
        QVERIFY(!op.name->hasFocus());
    }

    void escapePutsTheOldNameBack()
    {
        Operator op;
        QTest::mouseClick(op.name, Qt::LeftButton);
        QTest::keyClicks(op.name, QStringLiteral("xyz"));
        QTest::keyClick(op.name, Qt::Key_Escape);
        QCOMPARE(op.name->text(), QStringLiteral("Quenara Demo Service"));
        QVERIFY(!op.name->hasFocus());
        QVERIFY(!op.store.canUndo());
    }

    void leavingTheNameUnchangedMakesNoUndoStep()
    {
        Operator op;
        QTest::mouseClick(op.name, Qt::LeftButton);
        QTest::keyClick(op.name, Qt::Key_Return);
        QVERIFY(!op.store.canUndo());
    }

    void anEditMeanwhileLeavesTheNameBeingTyped()
    {
        Operator op;
        QTest::mouseClick(op.name, Qt::LeftButton);
        op.name->selectAll();
        QTest::keyClicks(op.name, QStringLiteral("Eas"));
        op.store.addSlide();
        QTest::keyClicks(op.name, QStringLiteral("ter"));
        QCOMPARE(op.name->text(), QStringLiteral("Easter"));
    }

    void theNameOfAnotherProjectTakesThePlaceOfOneBeingTyped()
    {
        Operator op;
        QTest::mouseClick(op.name, Qt::LeftButton);
        QTest::keyClicks(op.name, QStringLiteral("xyz"));
        op.store.newSundayServiceProject();
        QCOMPARE(op.name->text(), QStringLiteral("Sunday Service"));
        QTest::keyClick(op.name, Qt::Key_Return);
        QCOMPARE(op.store.project().name, QStringLiteral("Sunday Service"));
    }
};

QUENARA_GUI_TEST_MAIN(TestOperatorView)
#include "tst_operator_view.moc"
