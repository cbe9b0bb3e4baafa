#include "GuiTestSupport.h"
#include "RundownModel.h"
#include "TestSupport.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;
using namespace quenara;
using namespace quenara::test;

namespace tst_rundown_model {

class TestRundownModel : public GuiTest
{
    Q_OBJECT

private slots:
    void rowsAreEachItemFollowedByItsSlides()
    {
        World world;
        const RundownModel model(world.store);
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
        const RundownModel model(world.store);
        QCOMPARE(model.index(1).data().toString(), QStringLiteral("Untitled"));
    }

    void rowsSayWhichSlideIsSelectedQueuedAndLive()
    {
        World world;
        const RundownModel model(world.store);
        world.store.queueNext();
        const QModelIndex live = model.indexOfSlide(world.store.liveSlideID());
        const QModelIndex queued = model.indexOfSlide(world.store.queuedSlideID());
        QVERIFY(live.data(RundownModel::isLiveRole).toBool());
        QVERIFY(!live.data(RundownModel::isQueuedRole).toBool());
        QVERIFY(queued.data(RundownModel::isQueuedRole).toBool());
        QVERIFY(queued.data(RundownModel::isSelectedRole).toBool());
    }

    void thousandsOfRowsThatBearOneMarkAreToldOfAtOnce()
    {
        ZelvoProject project = showOf({5000, 1});
        for (Slide &slide : project.serviceItems.first().slides)
            slide.id = u"same"_s;
        World world(project);
        const RundownModel model(world.store);
        QList<std::pair<int, int>> told;
        connect(&model, &RundownModel::dataChanged, this,
                [&told](const QModelIndex &first, const QModelIndex &last) {
                    told.append({first.row(), last.row()});
                });
        world.store.selectSlide(project.serviceItems.last().slides.first().id, true);
        QVERIFY(told.contains(std::pair(1, 5000)));
        QVERIFY(told.size() < 10);
    }

    void theModelStaysConsistentWhileTheProjectChanges()
    {
        World world(showOf({3, 2, 4}));
        RundownModel model(world.store);
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        const auto verify = [&] {
            QStringList expected;
            for (const ServiceItem &item : world.store.project().serviceItems) {
                expected.append(item.id);
                for (const Slide &slide : item.slides)
                    expected.append(slide.id);
            }
            QStringList rows;
            for (int row = 0; row < model.rowCount(); ++row)
                rows.append(model.index(row).data(RundownModel::idRole).toString());
            QCOMPARE(rows, expected);
        };
        QRandomGenerator random(7);
        for (int i = 0; i < 400; ++i) {
            WorkspaceStore &store = world.store;
            const QList<FlattenedSlide> show = store.flattenedSlides();
            if (!show.isEmpty())
                store.selectSlide(show.at(random.bounded(int(show.size()))).id(), true);
            switch (random.bounded(10)) {
            case 0:
                store.addSlide();
                break;
            case 1:
                store.deleteSelectedSlide();
                break;
            case 2:
                store.moveSelectedSlide(random.bounded(-3, 4));
                break;
            case 3:
                store.moveSelectedServiceItem(random.bounded(-2, 3));
                break;
            case 4:
                store.addServiceItem(ServiceItemType::song);
                break;
            case 5:
                store.deleteSelectedServiceItem();
                break;
            case 6:
                store.duplicateSelectedSlide();
                break;
            case 7:
                store.undo();
                break;
            case 8:
                model.move(model.index(random.bounded(model.rowCount() + 1)),
                           random.bounded(-1, model.rowCount() + 2));
                break;
            default:
                store.redo();
            }
            verify();
        }
        world.store.newBlankProject();
        QCOMPARE(model.rowCount(), 0);
        QVERIFY(!model.indexOfSlide(QStringLiteral("unknown")).isValid());
        QVERIFY(!model.indexOfSlide(std::nullopt).isValid());
        world.store.addSlide();
        QCOMPARE(model.rowCount(), 2);
    }

    void onlyRowsThatComeGoOrChangeAreAnnounced_data()
    {
        QTest::addColumn<std::function<void(WorkspaceStore &)>>("operation");
        QTest::addColumn<QStringList>("expected");
        const auto row = [](const char *name, const std::function<void(WorkspaceStore &)> &run,
                            const QStringList &expected) {
            QTest::newRow(name) << run << expected;
        };
        row("a title",
            [](auto &store) { store.updateSelectedSlide([](Slide &s) { s.title = u"x"_s; }); },
            {u"changed 1"_s});
        row("the name of the project", [](auto &store) { store.updateProjectName(u"x"_s); }, {});
        row("a slide at the end of its item", [](auto &store) { store.addSlide(); },
            {u"inserted 4 to 4"_s, u"changed 1"_s, u"changed 4"_s});
        row("the next slide", [](auto &store) { store.nextLive(); },
            {u"changed 1"_s, u"changed 2"_s});
        row("blackout, which colours the live mark", [](auto &store) { store.toggleBlackout(); },
            {u"changed 1"_s});
        row("another section", [](auto &store) { store.selectServiceItem(QStringLiteral("B")); },
            {u"changed 0"_s, u"changed 4"_s});
    }

    void onlyRowsThatComeGoOrChangeAreAnnounced()
    {
        QFETCH(std::function<void(WorkspaceStore &)>, operation);
        QFETCH(QStringList, expected);
        World world(showOf({3, 2}));
        const RundownModel model(world.store);
        QStringList announced;
        connect(&model, &QAbstractItemModel::dataChanged, this,
                [&](const QModelIndex &first, const QModelIndex &last) {
                    QCOMPARE(first, last);
                    announced.append(QStringLiteral("changed %1").arg(first.row()));
                });
        connect(&model, &QAbstractItemModel::rowsInserted, this,
                [&](const QModelIndex &, int first, int last) {
                    announced.append(QStringLiteral("inserted %1 to %2").arg(first).arg(last));
                });
        connect(&model, &QAbstractItemModel::rowsRemoved, this,
                [&](const QModelIndex &, int first, int last) {
                    announced.append(QStringLiteral("removed %1 to %2").arg(first).arg(last));
                });
        operation(world.store);
        QCOMPARE(announced, expected);
    }

    void bothRowsOfASlideThatIsThereTwiceFollowItsState()
    {
        ZelvoProject project = showOf({3});
        project.serviceItems[0].slides[2].id = QStringLiteral("A2");
        World world(project);
        const RundownModel model(world.store);
        QList<int> changed;
        connect(&model, &QAbstractItemModel::dataChanged, this,
                [&](const QModelIndex &index) { changed.append(index.row()); });
        world.store.queueSlide(QStringLiteral("A2"));
        QCOMPARE(changed, QList<int>({1, 2, 3}));
    }
};

QUENARA_GUI_TEST(TestRundownModel)

} // namespace tst_rundown_model

#include "tst_rundown_model.moc"
