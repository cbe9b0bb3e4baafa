#include "GuiTestSupport.h"
#include "LayerListView.h"
#include "OperatorWorld.h"
#include "OutputModeBadge.h"
#include "ProjectFileService.h"
#include "RundownView.h"
#include "SlideCanvas.h"
#include "SlideView.h"
#include "SymbolButton.h"
#include "TransportView.h"

#include <QAbstractEventDispatcher>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolTip>

using namespace quenara;
using namespace quenara::test;

namespace tst_operator_view {

namespace {

struct Operator : OperatorWorld
{
    using OperatorWorld::OperatorWorld;

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

/// A project with a name that no field takes in.
QString endlessName()
{
    return QStringLiteral("name ").repeated(50'000);
}

/// What the tooltip over the middle of a widget says.
QString tooltipOver(QWidget &widget)
{
    QToolTip::hideText();
    const QPoint place = widget.rect().center();
    QHelpEvent event(QEvent::ToolTip, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &event);
    return widget.toolTip();
}

/// The part of the view that the visible \a panel covers.
QRect placeOf(const QWidget &panel, const QWidget &view)
{
    return {panel.mapTo(&view, QPoint()), panel.size()};
}

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

    void aNameThatIsTooLongForItsFieldIsNeitherEditedThereNorCut()
    {
        ZelvoProject project = test::World().store.project();
        project.name = endlessName();
        Operator op(project);
        QVERIFY(op.name->isReadOnly());
        QVERIFY(op.name->text().startsWith(QStringLiteral("name name")));
        op.name->setFocus();
        QTest::keyClicks(op.name, QStringLiteral("x"));
        QTest::keyClick(op.name, Qt::Key_Return);
        QCOMPARE(op.store.project().name, project.name);
        QVERIFY(!op.store.hasUnsavedChanges());
    }

    void onASmallScreenTheWorkAreaGivesWayAndNothingElse_data()
    {
        QTest::addColumn<QSize>("size");
        // What a title bar and the menus leave of the screen.
        QTest::newRow("the stated minimum") << QSize(1180, 760);
        QTest::newRow("1366 by 768") << QSize(1362, 696);
        QTest::newRow("1280 by 720") << QSize(1276, 648);
        QTest::newRow("1920 by 1080 at a scale of 1.5, beside a dock") << QSize(1210, 640);
        QTest::newRow("1024 by 768") << QSize(1020, 696);
        QTest::newRow("1366 by 768 at a font DPI of 144") << QSize(906, 440);
        QTest::newRow("1366 by 768 at a scale of 2") << QSize(681, 334);
        QTest::newRow("1280 by 720 at a scale of 2") << QSize(638, 310);
    }

    void onASmallScreenTheWorkAreaGivesWayAndNothingElse()
    {
        QFETCH(QSize, size);
        Operator op;
        op.store.updateProjectName(QString(200, u'W'));
        op.store.toggleBlackout(); // which is the widest badge
        op.view.resize(size);
        QCoreApplication::processEvents();
        QCOMPARE(op.view.size(), size);

        const auto panel = [&](const char *name) {
            return op.view.findChild<QWidget *>(QLatin1String(name));
        };
        const QWidgetList panels{panel("projectBar"),   op.view.findChild<RundownView *>(),
                                 panel("canvasHeader"), panel("slideCanvas"),
                                 panel("inspector"),    panel("transportBar")};
        for (const QWidget *one : panels) {
            QVERIFY(one);
            const QRect place = placeOf(*one, op.view);
            QVERIFY2(op.view.rect().contains(place), qPrintable(one->objectName()));
            for (const QWidget *other : panels)
                QVERIFY(one == other || !place.intersects(placeOf(*other, op.view)));
        }
        QCOMPARE(panel("transportBar")->height(), 132);
        const QRectF room = QRectF(panel("slideCanvas")->rect()).adjusted(24, 24, -24, -24);
        QVERIFY(room.contains(op.view.findChild<SlideCanvas *>()->slideRect()));

        for (const char *name : {"projectBar", "rundownHeader", "canvasHeader", "transportBar"}) {
            const QList<SymbolButton *> buttons = panel(name)->findChildren<SymbolButton *>();
            QVERIFY(!buttons.isEmpty());
            for (const SymbolButton *button : buttons) {
                const QRect place = placeOf(*button, *panel(name));
                QVERIFY2(panel(name)->rect().contains(place), qPrintable(button->text()));
                QVERIFY2(place.width() >= button->minimumSizeHint().width()
                             && place.height() >= button->minimumSizeHint().height(),
                         qPrintable(button->text()));
                for (const SymbolButton *other : buttons) {
                    QVERIFY(button == other || !place.intersects(placeOf(*other, *panel(name))));
                }
            }
        }
    }

    void theLivePreviewIsShownOnEveryScreen_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("showsQueued");
        QTest::addColumn<bool>("showsLiveAtFullSize");
        QTest::newRow("the stated minimum") << QSize(1180, 760) << true << true;
        QTest::newRow("1024 by 768") << QSize(1020, 696) << false << true;
        QTest::newRow("1366 by 768 at a font DPI of 144") << QSize(906, 440) << false << false;
        QTest::newRow("1280 by 720 at a scale of 2") << QSize(638, 310) << false << false;
    }

    void theLivePreviewIsShownOnEveryScreen()
    {
        QFETCH(QSize, size);
        QFETCH(bool, showsQueued);
        QFETCH(bool, showsLiveAtFullSize);
        Operator op;
        for (const QSize &one : {size, QSize(1480, 900), size}) {
            op.view.resize(one);
            QCoreApplication::processEvents();
        }
        const auto &preview = named<SlideView>(op.view, QStringLiteral("Live slide"));
        QVERIFY(preview.isVisible());
        QCOMPARE(preview.size() == QSize(178, 100), showsLiveAtFullSize);
        QCOMPARE(preview.height(), qRound(preview.width() * 100 / 178.0));
        QVERIFY(preview.width() >= 96);
        QCOMPARE(named<SlideView>(op.view, QStringLiteral("Queued slide")).isVisible(),
                 showsQueued);
        const QWidget &bar = *op.view.findChild<TransportView *>();
        const QRect place = placeOf(preview, bar);
        QVERIFY(bar.rect().contains(place));
        for (const SymbolButton *button : bar.findChildren<SymbolButton *>())
            QVERIFY2(!place.intersects(placeOf(*button, bar)), qPrintable(button->text()));
    }

    void onTheSmallestScreenTabBringsEachControlOfTheInspectorIntoSight()
    {
        Operator op;
        op.store.addTextLayer(SlideElementKind::text);
        op.view.resize(638, 500);
        QCoreApplication::processEvents();
        const auto *inspector = op.view.findChild<QWidget *>(QStringLiteral("inspector"));
        named(*inspector, QStringLiteral("Title")).setFocus();
        int seen = 0;
        for (QWidget *now = QApplication::focusWidget(); inspector->isAncestorOf(now);
             now = QApplication::focusWidget()) {
            QVERIFY2(!now->visibleRegion().isEmpty(), qPrintable(nameOf(*now)));
            ++seen;
            QTest::keyClick(now, Qt::Key_Tab);
        }
        QVERIFY(seen > 20);
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

    void aNameThatIsTooLongEndsInAnEllipsisUntilItIsEdited()
    {
        Operator op;
        const auto look = [&op] { // without the frame, which the pointer changes
            return op.name->grab(op.name->rect().adjusted(4, 4, -4, -4)).toImage();
        };
        op.store.updateProjectName(QStringLiteral("Short"));
        QVERIFY(tooltipOver(*op.name).isEmpty());
        const QString longName =
            QStringLiteral("Sunday Morning, the Second in Advent ").repeated(4);
        op.store.updateProjectName(longName);
        const QImage elided = look();
        QCOMPARE(tooltipOver(*op.name), longName);
        QCOMPARE(op.name->text(), longName);
        op.store.updateProjectName(longName + QStringLiteral("and more"));
        QCOMPARE(look(), elided); // the end, where they differ, is not seen
        QTest::mouseClick(op.name, Qt::LeftButton);
        QVERIFY(look() != elided);
    }

    void everyButtonHasATooltipThatNamesItsKey()
    {
        const Operator op;
        for (const auto *button : op.view.findChildren<SymbolButton *>())
            QVERIFY2(!button->toolTip().isEmpty(), qPrintable(nameOf(*button)));
        const std::pair<const char *, const char *> tips[] = {
            {"Blackout", "Blackout (B)"},
            {"Logo", "Logo (L)"},
            {"Go Live", "Send the queued slide live (Space)"},
            {"Next", "Next live slide (Right)"},
            {"Queue Prev", "Queue the slide before (Up)"},
            {"Save", "Save the project (Ctrl+S)"},
            {"Monitor", "Open or close the stage monitor"},
            {"Delete selected section", "Delete selected section"}};
        for (const auto &[name, tip] : tips) {
            QCOMPARE(named<SymbolButton>(op.view, QLatin1String(name)).toolTip(),
                     QLatin1String(tip));
        }
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

QUENARA_GUI_TEST(TestOperatorView)

} // namespace tst_operator_view

#include "tst_operator_view.moc"
