#include "ProjectNormalizer.h"
#include "ProjectTemplates.h"
#include "Records.h"
#include "TestMain.h"
#include "TestSupport.h"

#include <QTest>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_project_normalizer {

namespace {

SlideElement textLayer(const QString &text, std::int64_t zIndex = 0)
{
    SlideElement element;
    element.zIndex = zIndex;
    element.text = TextElementProperties::lyric(text);
    return element;
}

SlideElement lowerThird(const QString &title, const QString &subtitle, std::int64_t zIndex = 0)
{
    SlideElement element;
    element.kind = SlideElementKind::lowerThird;
    element.zIndex = zIndex;
    element.lowerThird = LowerThirdProperties{title, subtitle, {}, {}};
    return element;
}

SlideElement shape(std::int64_t zIndex = 0)
{
    SlideElement element;
    element.kind = SlideElementKind::shape;
    element.zIndex = zIndex;
    element.shape = ShapeProperties();
    return element;
}

SlideElement hidden(SlideElement element)
{
    element.visible = false;
    return element;
}

SlideElement ofKind(SlideElementKind kind, SlideElement element)
{
    element.kind = kind;
    return element;
}

Slide slideWith(const QList<SlideElement> &elements)
{
    Slide slide = ProjectTemplates::slide(u"Title"_s, u"Old body"_s, 0, u"warmAmber"_s);
    slide.design.elements = elements;
    return slide;
}

SlideMedia someImage(const QString &name)
{
    return {"data:image/png;base64,AAAA", name, u"image/png"_s};
}

const Slide &firstSlide(const ZelvoProject &project)
{
    return project.serviceItems.first().slides.first();
}

} // namespace

class TestProjectNormalizer : public QObject
{
    Q_OBJECT

private slots:
    void theSchemaVersionIsAtLeastTwo_data()
    {
        QTest::addColumn<std::int64_t>("version");
        QTest::addColumn<std::int64_t>("expected");
        const auto row = [](const char *name, std::int64_t version, std::int64_t expected) {
            QTest::newRow(name) << version << expected;
        };
        row("an older one", 1, 2);
        row("a negative one", -5, 2);
        row("the current one", 2, 2);
        row("the next one", 3, 3);
        row("a newer one", 7, 7);
    }

    void theSchemaVersionIsAtLeastTwo()
    {
        QFETCH(std::int64_t, version);
        ZelvoProject project = showOf({1});
        project.schemaVersion = version;
        QTEST(ProjectNormalizer::normalized(project).schemaVersion, "expected");
        QTEST(ProjectNormalizer::inCurrentSchema(project).schemaVersion, "expected");
        QCOMPARE(ProjectNormalizer::withMirroredOrder(project).schemaVersion, version);
    }

    void orderIndexesFollowTheListsAndNothingElseOfAnOrderedShowChanges()
    {
        const ZelvoProject ordered = showOf({2, 0, 3});
        QCOMPARE(ProjectNormalizer::normalized(ordered), ordered);
        ZelvoProject shuffled = ordered;
        for (ServiceItem &item : shuffled.serviceItems) {
            item.orderIndex = 7 - item.orderIndex;
            for (Slide &slide : item.slides)
                slide.orderIndex = -3 * slide.orderIndex - 1;
        }
        QVERIFY(shuffled != ordered);
        QCOMPARE(ProjectNormalizer::normalized(shuffled), ordered);
        QCOMPARE(ProjectNormalizer::withMirroredOrder(shuffled), ordered);
        QCOMPARE(ProjectNormalizer::inCurrentSchema(shuffled), ordered);
    }

    void aSecondTimeChangesNothing()
    {
        ZelvoProject project = ProjectTemplates::demoProject(someTime());
        project.serviceItems[0].slides[0].design.elements.clear();
        project.serviceItems[1].slides[1].design.elements = {lowerThird(u" "_s, u""_s)};
        project.serviceItems[1].slides[2].design.background.image = someImage(u"a.png"_s);
        const ZelvoProject once = ProjectNormalizer::normalized(project);
        QVERIFY(once != project);
        QCOMPARE(ProjectNormalizer::normalized(once), once);
    }

    void anEmptyDesignBecomesTheDefaultTemplateOfItsItemsType_data()
    {
        QTest::addColumn<ServiceItemType>("type");
        QTest::addColumn<QString>("templateID");
        QTest::addColumn<QString>("body");
        QTest::newRow("welcome") << ServiceItemType::welcome << u"welcome"_s << u"A Title"_s;
        QTest::newRow("song") << ServiceItemType::song << u"centerLyric"_s << u"A body"_s;
        QTest::newRow("scripture")
            << ServiceItemType::scripture << u"scriptureReading"_s << u"A Title"_s;
        QTest::newRow("message") << ServiceItemType::message << u"sermonTitle"_s << u"A Title"_s;
        QTest::newRow("announcement")
            << ServiceItemType::announcement << u"announcement"_s << u"A Title"_s;
        QTest::newRow("closing") << ServiceItemType::closing << u"closing"_s << u"A Title"_s;
        QTest::newRow("custom") << ServiceItemType::custom << u"minimalDark"_s << u"A Title"_s;
    }

    void anEmptyDesignBecomesTheDefaultTemplateOfItsItemsType()
    {
        QFETCH(ServiceItemType, type);
        QFETCH(QString, templateID);
        QFETCH(QString, body);
        ZelvoProject project = showOf({1});
        project.serviceItems[0].type = type;
        Slide &slide = project.serviceItems[0].slides[0];
        slide.title = u"A Title"_s;
        slide.body = u"  A body\n"_s;
        slide.footer = u"A footer"_s;
        slide.image = someImage(u"own.png"_s);
        slide.design.elements.clear();
        slide.design.background.image = someImage(u"background.png"_s);

        const Slide repaired = firstSlide(ProjectNormalizer::normalized(project));
        QCOMPARE(
            withoutIdentifiers(repaired.design),
            withoutIdentifiers(ProjectTemplates::design(templateID, u"A Title"_s, u"  A body\n"_s,
                                                        u"A footer"_s, someImage(u"own.png"_s))));
        QCOMPARE(repaired.body, body);
        QCOMPARE(repaired.id, u"A1"_s);
        QCOMPARE(repaired.image->name, u"own.png"_s);
    }

    void aSlideWithoutAnImageTakesItsBackgrounds()
    {
        ZelvoProject project = showOf({2});
        for (Slide &slide : project.serviceItems[0].slides)
            slide.design.background.image = someImage(u"background.png"_s);
        project.serviceItems[0].slides[1].image = someImage(u"own.png"_s);
        const ZelvoProject normalized = ProjectNormalizer::normalized(project);
        const QList<Slide> &slides = normalized.serviceItems.first().slides;
        QCOMPARE(slides.at(0).image, someImage(u"background.png"_s));
        QCOMPARE(slides.at(1).image, someImage(u"own.png"_s));
    }

    void savingAlsoSetsTheTimeOfUpdate()
    {
        ZelvoProject project = showOf({1});
        project.schemaVersion = 0;
        project.serviceItems[0].slides[0].body = u"stale"_s;
        const QDateTime later = someTime().addDays(1);
        ZelvoProject expected = ProjectNormalizer::normalized(project);
        expected.updatedAt = later;
        QCOMPARE(ProjectNormalizer::normalizedForSave(project, later), expected);
        QCOMPARE(ProjectNormalizer::normalizedForSave(project, later.addMSecs(789)), expected);
    }

    void theBodyIsTheLowestVisibleText_data()
    {
        QTest::addColumn<QList<SlideElement>>("layers");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const QList<SlideElement> &layers,
                            const QString &expected) { QTest::newRow(name) << layers << expected; };
        const QString kept = u"Old body"_s;
        row("a text is trimmed at both ends", {textLayer(u"   Holy, holy \n"_s)}, u"Holy, holy"_s);
        row("line breaks inside stay", {textLayer(u"\tone\n\n two"_s)}, u"one\n\n two"_s);
        row("a no-break space is white space", {textLayer(u"\u00a0word\u2003"_s)}, u"word"_s);
        row("the lowest counts", {textLayer(u"high"_s, 3), textLayer(u"low"_s, -1)}, u"low"_s);
        row("equal heights keep their list order",
            {textLayer(u"first"_s, 1), textLayer(u"second"_s, 1)}, u"first"_s);
        row("a blank text gives way to the next", {textLayer(u" \n"_s, 0), textLayer(u"x"_s, 1)},
            u"x"_s);
        row("hidden layers never count", {hidden(textLayer(u"low"_s, 0)), textLayer(u"high"_s, 1)},
            u"high"_s);
        row("hidden layers alone keep the body", {hidden(textLayer(u"low"_s))}, kept);
        row("layers without text keep the body", {shape(0), shape(1)}, kept);
        row("no layers keep the body", {}, kept);
        row("nothing but blank texts keeps the body", {textLayer(u" "_s)}, kept);
        row("a shape with a text counts like a text",
            {ofKind(SlideElementKind::shape, textLayer(u"on a shape"_s)), textLayer(u"x"_s, 1)},
            u"on a shape"_s);
        row("a lower third gives both its lines", {lowerThird(u" Name "_s, u"Role"_s)},
            u" Name \nRole"_s);
        row("a lower third with a blank subtitle gives its title",
            {lowerThird(u"Name"_s, u"   "_s)}, u"Name"_s);
        row("a lower third with a blank title gives its subtitle", {lowerThird(u""_s, u"Role"_s)},
            u"Role"_s);
        row("a blank lower third at the bottom empties the body",
            {lowerThird(u" "_s, u""_s, 0), textLayer(u"above"_s, 1)}, u""_s);
        row("a blank lower third above a text does not count",
            {lowerThird(u" "_s, u""_s, 2), textLayer(u"below"_s, 1)}, u"below"_s);
        SlideElement both = lowerThird(u"Name"_s, u""_s);
        both.text = TextElementProperties::lyric(u"text"_s);
        row("a text comes before the lower third of the same layer", {both}, u"text"_s);
        both.text->text = u" "_s;
        row("a blank text leaves the lower third of the same layer", {both}, u"Name"_s);
    }

    void theBodyIsTheLowestVisibleText()
    {
        QFETCH(QList<SlideElement>, layers);
        QFETCH(QString, expected);
        const Slide slide = slideWith(layers);
        QCOMPARE(ProjectNormalizer::compatibilityBody(slide), expected);
        if (layers.isEmpty())
            return; // normalizing would give it a design
        ZelvoProject project = showOf({1});
        project.serviceItems[0].slides = {slide};
        QCOMPARE(firstSlide(ProjectNormalizer::normalized(project)).body, expected);
    }

    void aLegacySlideBecomesASlideWithADesign()
    {
        LegacySlide legacy;
        legacy.id = u"S"_s;
        legacy.title = u"A title"_s;
        legacy.body = u"The body"_s;
        legacy.text = u"The text"_s;
        legacy.orderIndex = 9;
        legacy.footer = u"The footer"_s;
        legacy.audio = someImage(u"sound.wav"_s);
        legacy.emoji = u"\u271d"_s;
        const Slide slide = ProjectNormalizer::slide(legacy, 4);
        QCOMPARE(slide.id, u"S"_s);
        QCOMPARE(slide.title, u"A title"_s);
        QCOMPARE(slide.body, u"The body"_s);
        QCOMPARE(slide.orderIndex, 9);
        QCOMPARE(slide.footer, u"The footer"_s);
        QVERIFY(!slide.image);
        QCOMPARE(slide.audio, legacy.audio);
        QCOMPARE(withoutIdentifiers(slide.design),
                 withoutIdentifiers(ProjectTemplates::design(u"centerLyric"_s, u"A title"_s,
                                                             u"The body"_s, u"The footer"_s)));
    }

    void aLegacySlideWithAnImageGetsTheImageDesign()
    {
        LegacySlide legacy;
        legacy.text = u"The text"_s;
        legacy.image = someImage(u"hill.png"_s);
        const Slide slide = ProjectNormalizer::slide(legacy, 4);
        QVERIFY(!slide.id.isEmpty());
        QCOMPARE(slide.body, u"The text"_s);
        QCOMPARE(slide.orderIndex, 4);
        QCOMPARE(slide.image, legacy.image);
        QCOMPARE(slide.design.themeId, u"imageBackgroundLyric"_s);
        QCOMPARE(slide.design.background.image, legacy.image);
    }

    void aLegacySlideWithoutATitleIsNumbered_data()
    {
        QTest::addColumn<std::optional<QString>>("emoji");
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *name, const std::optional<QString> &emoji, int position,
                            const QString &expected) {
            QTest::newRow(name) << emoji << position << expected;
        };
        row("the first with a cross", u"\u271d"_s, 0, u"\u271d Slide 1"_s);
        row("the first without an emoji", {}, 0, u"Slide 1"_s);
        row("the twelfth", {}, 11, u"Slide 12"_s);
        row("an empty emoji leaves its space", u""_s, 0, u" Slide 1"_s);
    }

    void aLegacySlideWithoutATitleIsNumbered()
    {
        QFETCH(std::optional<QString>, emoji);
        QFETCH(int, position);
        LegacySlide legacy;
        legacy.emoji = emoji;
        QTEST(ProjectNormalizer::slide(legacy, position).title, "expected");
    }

    void aLegacyDocumentWithNothingInItBecomesOneImportedSlide()
    {
        const ZelvoProject project = ProjectNormalizer::project({}, someTime());
        QVERIFY(!project.id.isEmpty());
        QCOMPARE(project.name, u"Imported Quenara"_s);
        QCOMPARE(project.kind, ProjectKind::custom);
        QCOMPARE(project.schemaVersion, 2);
        QCOMPARE(project.updatedAt, someTime());
        QCOMPARE(project.serviceItems.size(), 1);
        const ServiceItem &item = project.serviceItems.first();
        QVERIFY(!item.id.isEmpty());
        QCOMPARE(item.title, u"Imported Slides"_s);
        QCOMPARE(item.type, ServiceItemType::custom);
        QVERIFY(!item.subtitle);
        QCOMPARE(item.slides.size(), 1);
        QCOMPARE(withoutIdentifiers(item.slides.first()),
                 withoutIdentifiers(
                     ProjectTemplates::slide(u"Imported Slide"_s, QString(), 0, u"centerLyric"_s)));
    }

    void nameAndTitleOfALegacyDocumentStandInForEachOther_data()
    {
        QTest::addColumn<std::optional<QString>>("name");
        QTest::addColumn<std::optional<QString>>("title");
        QTest::addColumn<QString>("projectName");
        QTest::addColumn<QString>("itemTitle");
        using Text = std::optional<QString>;
        QTest::newRow("both") << Text(u"N"_s) << Text(u"T"_s) << u"N"_s << u"T"_s;
        QTest::newRow("a name alone") << Text(u"N"_s) << Text() << u"N"_s << u"N"_s;
        QTest::newRow("a title alone") << Text() << Text(u"T"_s) << u"T"_s << u"T"_s;
        QTest::newRow("empty ones are taken") << Text(u""_s) << Text(u""_s) << u""_s << u""_s;
    }

    void nameAndTitleOfALegacyDocumentStandInForEachOther()
    {
        LegacyQuenaraDocument document;
        QFETCH(std::optional<QString>, name);
        QFETCH(std::optional<QString>, title);
        document.name = name;
        document.title = title;
        const ZelvoProject project = ProjectNormalizer::project(document, someTime());
        QTEST(project.name, "projectName");
        QTEST(project.serviceItems.first().title, "itemTitle");
    }

    void theItemsOfALegacyDocumentGoBeforeItsSlides()
    {
        LegacyQuenaraDocument document;
        document.id = u"P"_s;
        document.kind = ProjectKind::event;
        document.updatedAt = someTime().addYears(-3);
        document.slides = QList<LegacySlide>(2);
        document.serviceItems = showOf({1, 2}).serviceItems;
        const ZelvoProject project = ProjectNormalizer::project(document, someTime());
        QCOMPARE(project.id, u"P"_s);
        QCOMPARE(project.kind, ProjectKind::event);
        QCOMPARE(project.updatedAt, someTime().addYears(-3));
        QCOMPARE(project.serviceItems, showOf({1, 2}).serviceItems);

        document.serviceItems = QList<ServiceItem>();
        const ZelvoProject flat = ProjectNormalizer::project(document, someTime());
        QCOMPARE(flat.serviceItems.size(), 1);
        QCOMPARE(flat.serviceItems.first().slides.size(), 2);
    }

    void flatSlidesAreNumberedByPositionWhateverTheirOrderIndexes()
    {
        LegacyQuenaraDocument document;
        document.slides = QList<LegacySlide>(3);
        (*document.slides)[0].orderIndex = 5;
        const ZelvoProject project = ProjectNormalizer::project(document, someTime());
        QStringList titles;
        QList<std::int64_t> indexes;
        for (const Slide &slide : project.serviceItems.first().slides) {
            titles.append(slide.title);
            indexes.append(slide.orderIndex);
        }
        QCOMPARE(titles, (QStringList{u"Slide 1"_s, u"Slide 2"_s, u"Slide 3"_s}));
        QCOMPARE(indexes, (QList<std::int64_t>{0, 1, 2}));
    }

    void flatSlidesShareWhatTheyHaveAlike()
    {
        LegacyQuenaraDocument document;
        document.slides = QList<LegacySlide>(3);
        (*document.slides)[2].text = u"Another"_s;
        const ZelvoProject project = ProjectNormalizer::project(document, someTime());
        const QList<Slide> &slides = project.serviceItems.first().slides;
        const SlideDesign &first = slides.at(0).design;
        const SlideDesign &second = slides.at(1).design;
        const SlideDesign &third = slides.at(2).design;
        QVERIFY(second.background.gradient.isSharedWith(first.background.gradient));
        QVERIFY(second.elements.first().text.isSharedWith(first.elements.first().text));
        QVERIFY(isSharedWith(second.elements.first().name, first.elements.first().name));
        QVERIFY(second.elements.first().id != first.elements.first().id);
        QCOMPARE(first.elements.first().text->text, QString());
        QCOMPARE(third.elements.first().text->text, u"Another"_s);
        QVERIFY(third.background.gradient.isSharedWith(first.background.gradient));
    }

    void renumberingWhatIsInOrderCopiesNothing()
    {
        const ZelvoProject project = showOf({3, 2});
        QVERIFY(isSharedWith(ProjectNormalizer::withMirroredOrder(project), project));
        QVERIFY(isSharedWith(ProjectNormalizer::normalized(project), project));
    }
};

QUENARA_TEST(TestProjectNormalizer)

} // namespace tst_project_normalizer

#include "tst_project_normalizer.moc"
