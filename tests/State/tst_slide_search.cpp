#include "Show.h"
#include "SlideSearch.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QTest>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_slide_search {

namespace {

Slide slideOf(const QString &title, const QString &words)
{
    Slide slide;
    slide.id = newIdentifier();
    slide.title = title;
    slide.design = SlideDesign::centeredLyric(words);
    return slide;
}

ServiceItem itemOf(const QString &title, const QList<Slide> &slides)
{
    ServiceItem item;
    item.id = newIdentifier();
    item.title = title;
    item.slides = slides;
    return item;
}

/// Two songs with verses and choruses, a reading, and a slide with a lower third.
QList<FlattenedSlide> service()
{
    Slide speaker = slideOf(u"Speaker"_s, {});
    speaker.design.elements.first().kind = SlideElementKind::lowerThird;
    speaker.design.elements.first().lowerThird = LowerThirdProperties{
        .title = u"Miriam"_s, .subtitle = u"Pastor"_s, .fill = {}, .accent = {}};
    ZelvoProject project;
    project.serviceItems = {
        itemOf(u"Amazing Grace"_s,
               {slideOf(u"Verse 1"_s, u"Amazing grace, how sweet the sound"_s),
                slideOf(u"Chorus"_s, u"My chains are gone"_s),
                slideOf(u"Verse 2"_s, u"'Twas grace that taught my heart"_s)}),
        itemOf(u"\u00dcber den Flu\u00df"_s,
               {slideOf(u"Verse 1"_s, u"N\u00e9 un fiume, n\u00e9 CAF\u00c9"_s),
                slideOf(u"Chorus"_s, u"The river of life\nflows over me"_s),
                slideOf(u"Verse 2"_s, u"\u5e73\u5b89\u306e\u5ddd"_s)}),
        itemOf(u"Closing"_s, {speaker}),
    };
    return flattenedSlides(project);
}

using Places = QList<qsizetype>;

} // namespace

class TestSlideSearch : public QObject
{
    Q_OBJECT

private slots:
    void aSlideIsFoundByItsSectionItsTitleAndItsWords_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<Places>("found");
        QTest::newRow("a section") << u"amazing"_s << Places{0, 1, 2};
        QTest::newRow("a title") << u"chorus"_s << Places{1, 4};
        QTest::newRow("a word of the text") << u"chains"_s << Places{1};
        QTest::newRow("a word of a lower third") << u"pastor"_s << Places{6};
        QTest::newRow("a section and a title") << u"grace verse 2"_s << Places{2};
        QTest::newRow("words in any order") << u"sound sweet"_s << Places{0};
        QTest::newRow("the beginning of a word") << u"riv"_s << Places{4};
        QTest::newRow("not the inside of a word") << u"iver"_s << Places{};
        QTest::newRow("upper case") << u"CHAINS"_s << Places{1};
        QTest::newRow("text in upper case") << u"cafe"_s << Places{3};
        QTest::newRow("without its accent") << u"uber"_s << Places{3, 4, 5};
        QTest::newRow("with an accent that is not there") << u"am\u00e0zing"_s << Places{0, 1, 2};
        QTest::newRow("an accent of two characters") << u"U\u0308ber"_s << Places{3, 4, 5};
        QTest::newRow("a sharp s as two") << u"fluss"_s << Places{3, 4, 5};
        QTest::newRow("after an apostrophe") << u"twas"_s << Places{2};
        QTest::newRow("in the next line") << u"flows"_s << Places{4};
        QTest::newRow("amid a script without spaces") << u"\u5ddd"_s << Places{5};
        QTest::newRow("blanks around and between") << u"  grace   chorus "_s << Places{1};
        QTest::newRow("one word too many") << u"chains sound"_s << Places{};
        QTest::newRow("no word") << u" "_s << Places{0, 1, 2, 3, 4, 5, 6};
    }

    void aSlideIsFoundByItsSectionItsTitleAndItsWords()
    {
        QFETCH(QString, words);
        QFETCH(Places, found);
        QCOMPARE(SlideSearch(service()).find(words), found);
    }

    void nothingIsFoundInAnEmptyShow()
    {
        const SlideSearch search{{}};
        QCOMPARE(search.find(u"grace"_s), Places());
        QCOMPARE(search.find({}), Places());
        QCOMPARE(search.likeliest({}, u"grace"_s, -1), -1);
    }

    void theLikeliestIsTitledSoAndOfTheSectionThatIsLive_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<qsizetype>("live");
        QTest::addColumn<qsizetype>("likeliest");
        QTest::newRow("the chorus of this song") << u"cho"_s << qsizetype(2) << qsizetype(1);
        QTest::newRow("and of the other one") << u"cho"_s << qsizetype(3) << qsizetype(4);
        QTest::newRow("back to a verse") << u"verse 1"_s << qsizetype(5) << qsizetype(3);
        QTest::newRow("a title before a text") << u"ver"_s << qsizetype(4) << qsizetype(5);
        QTest::newRow("the next one from here on") << u"verse"_s << qsizetype(6) << qsizetype(0);
        QTest::newRow("a song that comes later") << u"fluss"_s << qsizetype(1) << qsizetype(3);
        QTest::newRow("a song that was before") << u"grace"_s << qsizetype(4) << qsizetype(0);
        QTest::newRow("nothing is live") << u"verse 2"_s << qsizetype(-1) << qsizetype(2);
        QTest::newRow("no word") << QString() << qsizetype(4) << qsizetype(4);
        QTest::newRow("not found") << u"zebra"_s << qsizetype(4) << qsizetype(-1);
    }

    void theLikeliestIsTitledSoAndOfTheSectionThatIsLive()
    {
        QFETCH(QString, words);
        QFETCH(qsizetype, live);
        QFETCH(qsizetype, likeliest);
        const SlideSearch search(service());
        QCOMPARE(search.likeliest(search.find(words), words, live), likeliest);
    }
};

QUENARA_TEST(TestSlideSearch)

} // namespace tst_slide_search

#include "tst_slide_search.moc"
