#include "GuiTestSupport.h"
#include "ShowListModel.h"
#include "TestSupport.h"

#include <QAbstractItemModelTester>

using namespace quenara;
using namespace quenara::test;

class TestShowListModel : public GuiTest
{
    Q_OBJECT

private slots:
    void rowsAreEachItemFollowedByItsSlides()
    {
        World world;
        const ShowListModel model(world.store);
        QStringList expected;
        for (const ServiceItem &item : world.store.project().serviceItems) {
            expected.append(item.title);
            for (const Slide &slide : item.slides)
                expected.append(slide.title);
        }
        QStringList rows;
        for (int row = 0; row < model.rowCount(); ++row)
            rows.append(model.index(row).data().toString());
        QCOMPARE(rows, expected);
    }

    void aSlideWithoutATitleReadsUntitled()
    {
        World world;
        world.store.updateSelectedSlide([](Slide &slide) { slide.title.clear(); });
        const ShowListModel model(world.store);
        QCOMPARE(model.index(1).data().toString(), QStringLiteral("Untitled"));
    }

    void rowsSayWhichSlideIsSelectedQueuedAndLive()
    {
        World world;
        const ShowListModel model(world.store);
        world.store.queueNext();
        const QModelIndex live = model.indexOf(world.store.liveSlideID());
        const QModelIndex queued = model.indexOf(world.store.queuedSlideID());
        QVERIFY(live.data(ShowListModel::isLiveRole).toBool());
        QVERIFY(!live.data(ShowListModel::isQueuedRole).toBool());
        QVERIFY(queued.data(ShowListModel::isQueuedRole).toBool());
        QVERIFY(queued.data(ShowListModel::isSelectedRole).toBool());
        QCOMPARE(live.data(Qt::AccessibleTextRole).toString(), QStringLiteral("Welcome, live"));
        QCOMPARE(queued.data(Qt::AccessibleTextRole).toString(), QStringLiteral("Today, queued"));
    }

    void theModelStaysConsistentWhileTheProjectChanges()
    {
        World world;
        ShowListModel model(world.store);
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        world.store.addSlide();
        world.store.deleteSelectedServiceItem();
        world.store.undo();
        world.store.newBlankProject();
        QCOMPARE(model.rowCount(), 0);
        QVERIFY(!model.indexOf(QStringLiteral("unknown")).isValid());
        world.store.addSlide();
        QCOMPARE(model.rowCount(), 2);
    }
};

QUENARA_GUI_TEST_MAIN(TestShowListModel)
#include "tst_show_list_model.moc"
