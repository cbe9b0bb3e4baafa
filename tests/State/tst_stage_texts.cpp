#include "StageTexts.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QTest>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

template<>
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the template's name is t
inline char *QTest::toString(const StageTexts &texts)
{
    return toString(QStringList{texts.currentSectionTitle, texts.slideCountText,
                                texts.currentStageText, texts.nextStageText}
                        .join(u" | "));
}

namespace tst_stage_texts {

namespace {

/// Two items, the second one without slides, and a third: A1, A2, C1.
ZelvoProject show()
{
    return showOf({2, 0, 1});
}

WorkspaceState live(const ZelvoProject &project, const std::optional<QString> &slideID,
                    OutputMode mode = OutputMode::live)
{
    WorkspaceState state;
    state.project = project;
    state.liveSlideID = slideID;
    state.outputMode = mode;
    return state;
}

ZelvoProject withoutBody(qsizetype item, qsizetype slide)
{
    ZelvoProject project = show();
    project.serviceItems[item].slides[slide].body.clear();
    return project;
}

ZelvoProject withTheFirstIdAgainAtTheEnd()
{
    ZelvoProject project = show();
    project.serviceItems[2].slides[0].id = u"A1"_s;
    return project;
}

} // namespace

class TestStageTexts : public QObject
{
    Q_OBJECT

private slots:
    void theTextsFollowFromTheLiveSlideAndTheMode_data()
    {
        QTest::addColumn<WorkspaceState>("state");
        QTest::addColumn<StageTexts>("expected");
        QTest::newRow("the first slide")
            << live(show(), u"A1"_s)
            << StageTexts{u"Item A"_s, u"1 / 3"_s, u"Words of A1"_s, u"Words of A2"_s};
        QTest::newRow("the last slide of an item, the next one across an empty item")
            << live(show(), u"A2"_s)
            << StageTexts{u"Item A"_s, u"2 / 3"_s, u"Words of A2"_s, u"Words of C1"_s};
        QTest::newRow("the last slide")
            << live(show(), u"C1"_s)
            << StageTexts{u"Item C"_s, u"3 / 3"_s, u"Words of C1"_s, u"No next slide"_s};
        QTest::newRow("nothing live")
            << live(show(), std::nullopt)
            << StageTexts{u"No Section"_s, u"0 / 3"_s, u"No live slide"_s, u"Words of A1"_s};
        QTest::newRow("a live slide that is gone")
            << live(show(), u"gone"_s)
            << StageTexts{u"No Section"_s, u"0 / 3"_s, u"No live slide"_s, u"Words of A1"_s};
        QTest::newRow("an empty project")
            << live(showOf({}), std::nullopt)
            << StageTexts{u"No Section"_s, u"0 / 0"_s, u"No live slide"_s, u"No next slide"_s};
        QTest::newRow("items without slides")
            << live(showOf({0, 0}), std::nullopt)
            << StageTexts{u"No Section"_s, u"0 / 0"_s, u"No live slide"_s, u"No next slide"_s};
        QTest::newRow("blackout") << live(show(), u"A1"_s, OutputMode::blackout)
                                  << StageTexts{u"Item A"_s, u"1 / 3"_s, u"BLACKOUT"_s,
                                                u"Words of A2"_s};
        QTest::newRow("logo") << live(show(), u"A1"_s, OutputMode::logo)
                              << StageTexts{u"Item A"_s, u"1 / 3"_s, u"LOGO / HOLDING"_s,
                                            u"Words of A2"_s};
        QTest::newRow("blackout with nothing live")
            << live(show(), std::nullopt, OutputMode::blackout)
            << StageTexts{u"No Section"_s, u"0 / 3"_s, u"BLACKOUT"_s, u"Words of A1"_s};
        QTest::newRow("a live slide without a body shows its title")
            << live(withoutBody(0, 0), u"A1"_s)
            << StageTexts{u"Item A"_s, u"1 / 3"_s, u"Title of A1"_s, u"Words of A2"_s};
        QTest::newRow("a next slide without a body shows its title")
            << live(withoutBody(0, 1), u"A1"_s)
            << StageTexts{u"Item A"_s, u"1 / 3"_s, u"Words of A1"_s, u"Title of A2"_s};
        QTest::newRow("of a slide id that is there twice, the first counts")
            << live(withTheFirstIdAgainAtTheEnd(), u"A1"_s)
            << StageTexts{u"Item A"_s, u"1 / 3"_s, u"Words of A1"_s, u"Words of A2"_s};
        QTest::newRow("a count has no grouping")
            << live(showOf({1500}), u"A1234"_s)
            << StageTexts{u"Item A"_s, u"1234 / 1500"_s, u"Words of A1234"_s, u"Words of A1235"_s};
    }

    void theTextsFollowFromTheLiveSlideAndTheMode()
    {
        QFETCH(WorkspaceState, state);
        QFETCH(StageTexts, expected);
        QCOMPARE(stageTexts(state), expected);
    }

    void whatIsSelectedOrQueuedChangesNothing()
    {
        WorkspaceState state = live(show(), u"A1"_s);
        const StageTexts before = stageTexts(state);
        state.selectedSlideID = state.queuedSlideID = u"C1"_s;
        QCOMPARE(stageTexts(state), before);
    }

    void theTextsOfAStoreAgreeWithWhatItDerives()
    {
        World world;
        for (qsizetype i = 0; i < world.store.flattenedSlides().size(); ++i) {
            const StageTexts texts = stageTexts(world.store.state());
            const FlattenedSlide live = world.store.flattenedSlides().at(i);
            QCOMPARE(texts.currentSectionTitle, live.serviceItemTitle);
            QCOMPARE(texts.currentStageText, live.slide.body);
            const std::optional<Slide> next = world.store.nextSlide();
            QCOMPARE(texts.nextStageText, next ? next->body : u"No next slide"_s);
            world.store.nextLive();
        }
    }
};

QUENARA_TEST(TestStageTexts)

} // namespace tst_stage_texts

#include "tst_stage_texts.moc"
