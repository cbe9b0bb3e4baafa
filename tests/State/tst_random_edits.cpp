#include "EveryEdit.h"
#include "ProjectNormalizer.h"
#include "RandomProject.h"
#include "Show.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QHash>
#include <QRandomGenerator>
#include <QTest>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_random_edits {

namespace {

constexpr int projectCount = 60;

/// \a project without what normalizing may fill in: bodies, missing slide images, and the designs
/// of the slides that have no layers in \a original.
ZelvoProject withoutRepairs(ZelvoProject project, const ZelvoProject &original)
{
    for (qsizetype i = 0; i < project.serviceItems.size(); ++i) {
        QList<Slide> &slides = project.serviceItems[i].slides;
        for (qsizetype j = 0; j < slides.size(); ++j) {
            const Slide &before = original.serviceItems.at(i).slides.at(j);
            slides[j].body.clear();
            if (!before.image)
                slides[j].image.reset();
            if (before.design.elements.isEmpty())
                slides[j].design = {};
        }
    }
    return project;
}

/// How often each id of an item, a slide or a layer is there.
QHash<QString, int> idCounts(const ZelvoProject &project)
{
    QHash<QString, int> counts;
    for (const ServiceItem &item : project.serviceItems) {
        ++counts[item.id];
        for (const Slide &slide : item.slides) {
            ++counts[slide.id];
            for (const SlideElement &element : slide.design.elements)
                ++counts[element.id];
        }
    }
    return counts;
}

/// Selects a slide and a layer of it at random, with another slide live.
void selectSomething(WorkspaceStore &store, QRandomGenerator &random)
{
    const QStringList ids = slideIDs(store.project());
    if (ids.isEmpty())
        return;
    const auto anyID = [&] { return ids.at(random.bounded(int(ids.size()))); };
    store.queueSlide(anyID());
    store.goLive();
    store.selectSlide(anyID(), true);
    const QList<SlideElement> elements =
        store.slideWithID(store.selectedSlideID())->design.elements;
    if (!elements.isEmpty())
        store.selectElement(elements.at(random.bounded(int(elements.size()))).id);
}

/// True if every id of \a state is that of something in its project, and they agree.
bool pointsIntoItsProject(const WorkspaceState &state)
{
    const auto isKnown = [&state](const std::optional<QString> &id) {
        return !id || positionOf(state.project, id);
    };
    if (!isKnown(state.selectedSlideID) || !isKnown(state.queuedSlideID)
        || !isKnown(state.liveSlideID))
        return false;
    const auto position = positionOf(state.project, state.selectedSlideID);
    return !position
        || (state.selectedServiceItemID == state.project.serviceItems.at(position->item).id
            && (!state.selectedElementID
                || elementIndex(slideAt(state.project, *position), state.selectedElementID)));
}

} // namespace

class TestRandomEdits : public QObject
{
    Q_OBJECT

private slots:
    void everyOperationThatEditsIsTried()
    {
        QStringList tried;
        for (const NamedEdit &edit : everyEdit())
            tried.append(QString::fromLatin1(edit.operation));
        tried.removeDuplicates();
        tried.sort();
        QCOMPARE(tried, editingOperations());
    }

    void anyEditOfAnyProjectKeepsToTheRules_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < everyEdit().size(); ++i)
            QTest::newRow(everyEdit().at(i).name) << i;
    }

    void anyEditOfAnyProjectKeepsToTheRules()
    {
        QFETCH(int, index);
        const NamedEdit &edit = everyEdit().at(index);
        int stepCount = 0;
        for (unsigned seed = 1; seed <= projectCount; ++seed) {
            World world(randomProject(seed));
            WorkspaceStore &store = world.store;
            QRandomGenerator random(seed);
            selectSomething(store, random);
            const Snapshot snapshot = snapshotOf(store);
            const ZelvoProject before = store.project();

            world.run(edit);
            if (!store.canUndo()) {
                QVERIFY(snapshotOf(store) == snapshot);
                continue;
            }
            ++stepCount;
            const QByteArray place = "seed " + QByteArray::number(seed);
            const ZelvoProject after = store.project();
            QVERIFY2(pointsIntoItsProject(store.state()), place);
            QCOMPARE(after, ProjectNormalizer::inCurrentSchema(after));
            QCOMPARE(withoutRepairs(ProjectNormalizer::normalized(after), after),
                     withoutRepairs(after, after));
            QCOMPARE(store.flattenedSlides(), flattenedSlides(after));

            // What the edit made has ids of its own; a slide's copy keeps those of its layers.
            const QHash<QString, int> known = idCounts(before);
            const QHash<QString, int> counts = idCounts(after);
            for (auto it = counts.cbegin(); it != counts.cend(); ++it)
                QVERIFY2(known.contains(it.key()) || it.value() == 1, qPrintable(it.key()));

            QCOMPARE(store.undoStore().undoStack(), QList{before});
            store.undo();
            QCOMPARE(store.project(), before);
            QVERIFY2(pointsIntoItsProject(store.state()), place);
            store.redo();
            QCOMPARE(store.project(), after);
            QVERIFY2(pointsIntoItsProject(store.state()), place);
        }
        QVERIFY(stepCount > 0);
    }
};

QUENARA_TEST(TestRandomEdits)

} // namespace tst_random_edits

#include "tst_random_edits.moc"
