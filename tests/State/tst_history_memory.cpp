#include "ProjectGenerator.h"
#include "Show.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QTest>

#include <malloc.h>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_history_memory {

namespace {

/// The bytes that the program holds of the heap.
std::size_t heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void rewriteSelectedText(WorkspaceStore &store, int number)
{
    store.updateSelectedSlide([number](Slide &slide) {
        slide.design.elements[0].text = TextElementProperties::lyric(u"Edit %1"_s.arg(number));
    });
}

constexpr std::size_t limit = 8UL * 1024 * 1024;
constexpr bench::ProjectSize size{.slideCount = 10'000, .itemCount = 200};

} // namespace

class TestHistoryMemory : public QObject
{
    Q_OBJECT

private slots:
    void sixtyEditsOfABigProjectGrowTheHeapByAtMostEightMegabytes_data()
    {
        QTest::addColumn<int>("stride");
        QTest::newRow("of one slide") << 0;
        QTest::newRow("of one item") << 1;
        QTest::newRow("all over the show") << 166;
    }

    void sixtyEditsOfABigProjectGrowTheHeapByAtMostEightMegabytes()
    {
        QFETCH(int, stride);
        World world(bench::generateProject(size));
        QCOMPARE(slideCount(world.store.project()), 10'000);
        const QStringList ids = slideIDs(world.store.project());
        rewriteSelectedText(world.store, 0);
        const std::size_t before = heapInUse();
        for (int i = 1; i <= 60; ++i) {
            world.store.selectSlide(ids.at(qsizetype(i) * stride), true);
            rewriteSelectedText(world.store, i);
        }
        const std::size_t after = heapInUse();
        const std::size_t growth = after - std::min(before, after);
        QCOMPARE(world.store.undoStore().undoStack().size(), 60);
        QVERIFY2(growth <= limit, qPrintable(u"%1 bytes"_s.arg(growth)));
    }

    void aWholeCopyOfTheProjectWouldNotFit()
    {
        const std::size_t before = heapInUse();
        const ZelvoProject project = bench::generateProject(size);
        QCOMPARE(slideCount(project), 10'000);
        QVERIFY(heapInUse() - before > limit);
    }
};

QUENARA_TEST(TestHistoryMemory)

} // namespace tst_history_memory

#include "tst_history_memory.moc"
