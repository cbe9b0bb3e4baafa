#include "Show.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QTest>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_show {

class TestShow : public QObject
{
    Q_OBJECT

private slots:
    void everySlideStandsInTheShowWithItsItemAndItsPlace()
    {
        const ZelvoProject project = showOf({2, 0, 1});
        const QList<FlattenedSlide> show = flattenedSlides(project);
        QCOMPARE(show.size(), 3);
        const FlattenedSlide second{u"A"_s, u"Item A"_s, ServiceItemType::song,
                                    project.serviceItems.at(0).slides.at(1), 1};
        QCOMPARE(show.at(1), second);
        QCOMPARE(show.at(2).slide.id, u"C1"_s);
        QCOMPARE(show.at(2).serviceItemID, u"C"_s);
    }

    void theFirstSlideOfTheSecondItemComesAfterAllOfTheFirst()
    {
        for (const int count : {0, 1, 5}) {
            const QList<FlattenedSlide> show = flattenedSlides(showOf({count, 2}));
            const auto first = std::find_if(show.cbegin(), show.cend(),
                                            [](const auto &f) { return f.slide.id == u"B1"_s; });
            QVERIFY(first != show.cend());
            QCOMPARE(first->absoluteIndex, count);
        }
    }

    void itemsAndSlidesStandByOrderIndexAndEqualOnesAsStored()
    {
        ZelvoProject project = showOf({3, 2, 1});
        project.serviceItems[0].orderIndex = 5;
        project.serviceItems[1].orderIndex = -1;
        project.serviceItems[2].orderIndex = -1;
        project.serviceItems[0].slides[0].orderIndex = 1;
        project.serviceItems[0].slides[1].orderIndex = 1;
        project.serviceItems[0].slides[2].orderIndex = 0;
        QStringList ids;
        QList<std::int64_t> indexes;
        for (const FlattenedSlide &flattened : flattenedSlides(project)) {
            ids.append(flattened.id());
            indexes.append(flattened.absoluteIndex);
        }
        QCOMPARE(ids, (QStringList{u"B1"_s, u"B2"_s, u"C1"_s, u"A3"_s, u"A1"_s, u"A2"_s}));
        QCOMPARE(indexes, (QList<std::int64_t>{0, 1, 2, 3, 4, 5}));
    }

    void aShowWithoutSlidesIsEmpty_data()
    {
        QTest::addColumn<QList<int>>("slideCounts");
        QTest::newRow("no items") << QList<int>();
        QTest::newRow("items without slides") << QList<int>{0, 0};
    }

    void aShowWithoutSlidesIsEmpty()
    {
        QFETCH(QList<int>, slideCounts);
        const ZelvoProject project = showOf(slideCounts);
        QVERIFY(flattenedSlides(project).isEmpty());
        QCOMPARE(slideCount(project), 0);
        QVERIFY(!firstSlideID(project));
        QVERIFY(!positionAt(project, 0));
    }

    void everySlideIsFoundByIdAndByPlace()
    {
        const ZelvoProject project = showOf({0, 3, 0, 0, 2, 1, 0});
        const QList<FlattenedSlide> show = flattenedSlides(project);
        QCOMPARE(slideCount(project), 6);
        QCOMPARE(show.size(), 6);
        for (const FlattenedSlide &flattened : show) {
            const auto byId = positionOf(project, flattened.slide.id);
            QVERIFY(byId);
            QCOMPARE(byId->absolute, flattened.absoluteIndex);
            QCOMPARE(project.serviceItems.at(byId->item).id, flattened.serviceItemID);
            QCOMPARE(slideAt(project, *byId), flattened.slide);
            QCOMPARE(positionAt(project, flattened.absoluteIndex), byId);
        }
        QCOMPARE(firstSlideID(project), u"B1"_s);
    }

    void whatIsNotInTheShowIsNotFound()
    {
        const ZelvoProject project = showOf({2, 1});
        QVERIFY(!positionOf(project, std::nullopt));
        QVERIFY(!positionOf(project, u"a1"_s));
        QVERIFY(!positionOf(project, QString()));
        QVERIFY(!positionAt(project, -1));
        QVERIFY(!positionAt(project, 3));
    }

    void theSlideAfterAnotherIsFoundAcrossItems()
    {
        const ZelvoProject project = showOf({1, 0, 2});
        QCOMPARE(positionAfter(project, positionOf(project, u"A1"_s)),
                 positionOf(project, u"C1"_s));
        QCOMPARE(positionAfter(project, positionOf(project, u"C1"_s)),
                 positionOf(project, u"C2"_s));
        QVERIFY(!positionAfter(project, positionOf(project, u"C2"_s)));
        QCOMPARE(positionAfter(project, std::nullopt), positionOf(project, u"A1"_s));
        QCOMPARE(positionAfter(project, positionOf(project, u"gone"_s)),
                 positionOf(project, u"A1"_s));
        QVERIFY(!positionAfter(showOf({0}), std::nullopt));
    }

    void theFirstOfSlidesWithTheSameIdIsFound()
    {
        ZelvoProject project = showOf({1, 2});
        project.serviceItems[1].slides[1].id = u"A1"_s;
        QCOMPARE(positionOf(project, u"A1"_s), (SlidePosition{0, 0, 0}));
    }
};

QUENARA_TEST(TestShow)

} // namespace tst_show

#include "tst_show.moc"
