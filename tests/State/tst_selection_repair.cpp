#include "SelectionEdits.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QTest>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_selection_repair {

class TestSelectionRepair : public QObject
{
    Q_OBJECT

private slots:
    void everyIdPointsAtSomethingAfterwards_data()
    {
        QTest::addColumn<QList<int>>("slideCounts");
        QTest::addColumn<Selection>("before");
        QTest::addColumn<Selection>("expected");
        const auto row = [](const char *name, const QList<int> &slideCounts,
                            const Selection &before, const Selection &expected) {
            QTest::newRow(name) << slideCounts << before << expected;
        };
        row("what exists stays", {2, 1}, {u"B"_s, u"B1"_s, u"A1"_s, u"A2"_s, u"B1.line"_s},
            {u"B"_s, u"B1"_s, u"A1"_s, u"A2"_s, u"B1.line"_s});
        row("an unknown selected slide becomes the first", {2, 1},
            {u"B"_s, u"X"_s, u"A2"_s, u"B1"_s, {}}, {u"A"_s, u"A1"_s, u"A2"_s, u"B1"_s, {}});
        row("an unknown queued slide becomes the selected one", {2, 1},
            {u"B"_s, u"B1"_s, u"X"_s, u"A1"_s, {}}, {u"B"_s, u"B1"_s, u"B1"_s, u"A1"_s, {}});
        row("an unknown live slide becomes the selected one", {2, 1},
            {u"B"_s, u"B1"_s, u"A1"_s, u"X"_s, {}}, {u"B"_s, u"B1"_s, u"A1"_s, u"B1"_s, {}});
        row("queue and live follow the repaired selection", {0, 2},
            {u"X"_s, u"X"_s, u"Y"_s, u"Z"_s, {}}, {u"B"_s, u"B1"_s, u"B1"_s, u"B1"_s, {}});
        row("absent ids stay absent", {2}, {}, {});
        row("an unknown queued slide goes with an absent selection", {2},
            {{}, {}, u"X"_s, u"A2"_s, {}}, {{}, {}, {}, u"A2"_s, {}});
        row("nothing is left of an empty show", {0}, {u"A"_s, u"X"_s, u"X"_s, u"X"_s, {}}, {});
        row("the item follows the slide", {1, 1}, {u"A"_s, u"B1"_s, {}, {}, {}},
            {u"B"_s, u"B1"_s, {}, {}, {}});
        row("without a slide no item is selected", {1, 0}, {u"B"_s, {}, {}, {}, {}}, {});
        row("an unknown layer becomes the first of its slide", {1},
            {u"A"_s, u"A1"_s, {}, {}, u"X"_s}, {u"A"_s, u"A1"_s, {}, {}, u"A1.lyric"_s});
        row("a layer of another slide is unknown", {2}, {u"A"_s, u"A2"_s, {}, {}, u"A1.line"_s},
            {u"A"_s, u"A2"_s, {}, {}, u"A2.lyric"_s});
        row("no layer stays none", {1}, {u"A"_s, u"A1"_s, {}, {}, {}},
            {u"A"_s, u"A1"_s, {}, {}, {}});
        row("a layer is left alone without a selected slide", {1}, {{}, {}, {}, {}, u"X"_s},
            {{}, {}, {}, {}, u"X"_s});
    }

    void everyIdPointsAtSomethingAfterwards()
    {
        QFETCH(QList<int>, slideCounts);
        QFETCH(Selection, before);
        WorkspaceState state;
        state.project = showOf(slideCounts);
        state.selectedServiceItemID = before.item;
        state.selectedSlideID = before.slide;
        state.queuedSlideID = before.queued;
        state.liveSlideID = before.live;
        state.selectedElementID = before.element;
        state.outputMode = OutputMode::logo;
        const WorkspaceState repaired = edits::repairSelection(state);
        QTEST(selectionOf(repaired), "expected");
        QCOMPARE(repaired.outputMode, OutputMode::logo);
        QCOMPARE(repaired.project, state.project);
    }

    void aSlideWithoutLayersHasNoneSelected()
    {
        WorkspaceState state;
        state.project = showOf({1});
        state.project.serviceItems[0].slides[0].design.elements.clear();
        state.selectedSlideID = u"A1"_s;
        state.selectedElementID = u"A1.lyric"_s;
        QVERIFY(!edits::repairSelection(state).selectedElementID);
    }

    void aRepairedWorkspaceNeedsNoRepair()
    {
        WorkspaceState state;
        state.project = showOf({0, 2});
        state.selectedSlideID = u"X"_s;
        state.queuedSlideID = u"Y"_s;
        state.liveSlideID = u"Z"_s;
        state.selectedElementID = u"W"_s;
        const WorkspaceState once = edits::repairSelection(state);
        QVERIFY(once != state);
        QCOMPARE(edits::repairSelection(once), once);
    }
};

QUENARA_TEST(TestSelectionRepair)

} // namespace tst_selection_repair

#include "tst_selection_repair.moc"
