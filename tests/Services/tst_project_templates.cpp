#include "ProjectTemplates.h"
#include "Records.h"
#include "TestMain.h"

#include <QSet>
#include <QTest>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_project_templates {

namespace {

const QString givenTitle = u"The Title"_s;
const QString givenBody = u"The\nBody"_s;
const QString givenFooter = u"The Footer"_s;

SlideMedia someImage()
{
    return {"data:image/png;base64,AAAA", u"hill.png"_s, u"image/png"_s};
}

SlideBackground solid(QStringView color)
{
    SlideBackground background;
    background.solidColor = RGBAColor::fromHex(color);
    return background;
}

SlideBackground gradient(QStringView color, QStringView start, QStringView end,
                         GradientDirection direction, double dim)
{
    SlideBackground background = solid(color);
    background.kind = SlideBackgroundKind::gradient;
    background.gradient =
        GradientBackground{RGBAColor::fromHex(start), RGBAColor::fromHex(end), direction};
    background.dimAmount = dim;
    return background;
}

SlideElement textLayer(const QString &name, SlideElementKind kind, const QString &words,
                       const CanvasFrame &frame, double size, TextFontWeight weight,
                       QStringView color, TextAlignmentValue alignment, bool soft, int z)
{
    SlideElement element;
    element.name = name;
    element.kind = kind;
    element.frame = frame;
    element.zIndex = z;
    TextElementProperties properties;
    properties.text = words;
    properties.fontFamily = u"Avenir Next"_s;
    properties.fontSize = size;
    properties.weight = weight;
    properties.textColor = RGBAColor::fromHex(color);
    properties.alignment = alignment;
    properties.lineHeight = 1.12;
    properties.padding = 18;
    if (soft)
        properties.shadow = TextShadow{{0, 0, 0, 0.55}, 18, 0, 8};
    element.text = properties;
    return element;
}

SlideElement lyric(const CanvasFrame &frame, double size, TextFontWeight weight)
{
    return textLayer(u"Lyric"_s, SlideElementKind::songLyricText, givenBody, frame, size, weight,
                     u"#f4f1ea", TextAlignmentValue::center, true, 10);
}

SlideElement shapeLayer(const QString &name, const CanvasFrame &frame, double opacity,
                        const ShapeProperties &properties, int z)
{
    SlideElement element;
    element.name = name;
    element.kind = SlideElementKind::shape;
    element.frame = frame;
    element.opacity = opacity;
    element.zIndex = z;
    element.shape = properties;
    return element;
}

SlideElement accent(double y, int z)
{
    return shapeLayer(u"Amber Accent"_s, {760, y, 400, 8}, 0.92,
                      {ShapeKind::capsule, RGBAColor::fromHex(u"#e0a134"), {}, 0, 4}, z);
}

/// Every layer of the catalogue that is not the lyric itself, as a difference that must be seen.
SlideDesign designOfAll(const QString &templateID)
{
    return ProjectTemplates::design(templateID, givenTitle, givenBody, givenFooter);
}

QStringList catalogueIDs()
{
    QStringList ids;
    for (const SlideTemplate &entry : ProjectTemplates::templates())
        ids.append(entry.id);
    return ids;
}

} // namespace

class TestProjectTemplates : public QObject
{
    Q_OBJECT

private slots:
    void theCatalogueNamesTenTemplatesInOrder()
    {
        const QList<SlideTemplate> expected = {
            {u"centerLyric"_s, u"Center Lyric"_s, u"Large lyric centered with soft shadow"_s},
            {u"lowerLyric"_s, u"Lower Lyric"_s,
             u"Lyric anchored low for motion or camera backgrounds"_s},
            {u"scriptureReading"_s, u"Scripture Reading"_s,
             u"Reference, passage, and small footer label"_s},
            {u"sermonTitle"_s, u"Sermon Title"_s, u"Bold title slide with subtitle"_s},
            {u"welcome"_s, u"Welcome"_s, u"Warm gathering opener"_s},
            {u"announcement"_s, u"Announcement"_s, u"Title, body, and clear visual hierarchy"_s},
            {u"closing"_s, u"Closing"_s, u"Simple closing blessing or dismissal"_s},
            {u"minimalDark"_s, u"Minimal Dark"_s, u"Clean black room-safe slide"_s},
            {u"warmAmber"_s, u"Warm Amber"_s, u"Amber gradient with restrained accents"_s},
            {u"imageBackgroundLyric"_s, u"Image Background Lyric"_s,
             u"Image-ready lyric design with dim overlay"_s},
        };
        QCOMPARE(ProjectTemplates::templates(), expected);
    }

    void eachTemplateDesignsAsItsRecipeSays_data()
    {
        using enum SlideElementKind;
        using enum TextFontWeight;
        using enum GradientDirection;
        constexpr auto left = TextAlignmentValue::left;
        constexpr auto center = TextAlignmentValue::center;
        const auto words = SlideElementKind::text;

        QTest::addColumn<SlideBackground>("background");
        QTest::addColumn<QList<SlideElement>>("layers");

        QTest::newRow("centerLyric")
            << gradient(u"#090b10", u"#05070b", u"#182235", diagonal, 0.08)
            << QList{lyric({220, 318, 1480, 430}, 82, semibold), accent(800, 2)};
        QTest::newRow("lowerLyric")
            << gradient(u"#161b22", u"#081019", u"#111723", vertical, 0.2)
            << QList{lyric({180, 610, 1560, 290}, 72, bold),
                     shapeLayer(u"Bottom Wash"_s, {0, 574, 1920, 506}, 0.66,
                                {ShapeKind::rectangle, {0, 0, 0, 0.45}, {}, 0, 0}, 1)};
        QTest::newRow("scriptureReading")
            << solid(u"#10151f")
            << QList{textLayer(u"Reference"_s, words, givenTitle, {180, 122, 1560, 120}, 52, bold,
                               u"#e0a134", left, true, 10),
                     textLayer(u"Scripture"_s, scriptureText, givenBody, {180, 282, 1450, 560}, 56,
                               medium, u"#f4f1ea", left, false, 11),
                     textLayer(u"Footer"_s, words, givenFooter, {180, 908, 760, 80}, 28, medium,
                               u"#aeb7c5", left, false, 12)};
        QTest::newRow("sermonTitle")
            << gradient(u"#161b22", u"#16120d", u"#0b111b", diagonal, 0.08)
            << QList{textLayer(u"Title"_s, words, givenTitle, {180, 326, 1560, 155}, 92, heavy,
                               u"#f4f1ea", center, true, 10),
                     textLayer(u"Subtitle"_s, words, givenBody, {260, 510, 1400, 120}, 42, medium,
                               u"#d5c4a3", center, false, 11),
                     accent(688, 3)};
        QTest::newRow("welcome") << gradient(u"#121417", u"#111723", u"#2b2114", radialHint, 0.04)
                                 << QList{textLayer(u"Title"_s, words, givenTitle,
                                                    {200, 300, 1520, 165}, 104, heavy, u"#f4f1ea",
                                                    center, true, 10),
                                          textLayer(u"Subtitle"_s, words, givenBody,
                                                    {320, 500, 1280, 110}, 44, medium, u"#efe0c4",
                                                    center, false, 11),
                                          accent(660, 3)};
        QTest::newRow("announcement")
            << solid(u"#f0eee8")
            << QList{shapeLayer(u"Accent Block"_s, {0, 0, 135, 1080}, 1,
                                {ShapeKind::rectangle, RGBAColor::fromHex(u"#c9872a"), {}, 0, 0},
                                1),
                     textLayer(u"Title"_s, words, givenTitle, {245, 215, 1320, 150}, 76, heavy,
                               u"#181b20", left, false, 10),
                     textLayer(u"Body"_s, words, givenBody, {250, 405, 1240, 340}, 54, medium,
                               u"#303640", left, false, 11),
                     textLayer(u"Footer"_s, words, givenFooter, {250, 840, 900, 80}, 30, semibold,
                               u"#88601f", left, false, 12)};
        QTest::newRow("closing") << gradient(u"#090b10", u"#05070b", u"#0e1a16", vertical, 0.04)
                                 << QList{textLayer(u"Title"_s, words, givenTitle,
                                                    {260, 328, 1400, 140}, 88, bold, u"#f4f1ea",
                                                    center, true, 10),
                                          textLayer(u"Body"_s, words, givenBody,
                                                    {310, 500, 1300, 185}, 54, medium, u"#cad6ce",
                                                    center, false, 11)};
        QTest::newRow("minimalDark")
            << solid(u"#05070b")
            << QList{textLayer(u"Title"_s, words, givenTitle, {240, 300, 1440, 125}, 72, bold,
                               u"#f4f1ea", center, true, 10),
                     textLayer(u"Body"_s, words, givenBody, {310, 470, 1300, 250}, 52, medium,
                               u"#d7dce7", center, false, 11)};
        QTest::newRow("warmAmber") << gradient(u"#25170b", u"#0b0907", u"#5a3711", diagonal, 0.08)
                                   << QList{lyric({210, 340, 1500, 360}, 78, bold)};
        QTest::newRow("imageBackgroundLyric")
            << gradient(u"#090b10", u"#05070b", u"#1d2530", diagonal, 0.48)
            << QList{lyric({205, 560, 1510, 290}, 70, bold)};
    }

    void eachTemplateDesignsAsItsRecipeSays()
    {
        QFETCH(SlideBackground, background);
        QFETCH(QList<SlideElement>, layers);
        const QString templateID = QString::fromLatin1(QTest::currentDataTag());
        const SlideDesign design = withoutIdentifiers(designOfAll(templateID));
        QCOMPARE(design.canvasSize, (CanvasSize{1920, 1080}));
        QVERIFY(design.safeAreaEnabled);
        QCOMPARE(design.themeId, templateID);
        QCOMPARE(design.background, background);
        QCOMPARE(design.elements.size(), layers.size());
        for (qsizetype i = 0; i < layers.size(); ++i)
            QVERIFY2(design.elements.at(i) == layers.at(i), qPrintable(layers.at(i).name));
    }

    void everyTemplateOfTheCatalogueHasARecipeOfItsOwn()
    {
        QList<SlideDesign> seen;
        for (const QString &id : catalogueIDs()) {
            SlideDesign design = withoutIdentifiers(designOfAll(id));
            QCOMPARE(design.themeId, id);
            design.themeId.reset();
            QVERIFY2(!seen.contains(design), qPrintable(id));
            seen.append(design);
        }
    }

    void anyOtherIdentifierGivesTheCenteredLyric_data()
    {
        QTest::addColumn<QString>("templateID");
        QTest::newRow("a capital letter") << u"CenterLyric"_s;
        QTest::newRow("a template's name") << u"Lower Lyric"_s;
        QTest::newRow("no identifier") << QString();
        QTest::newRow("a space after it") << u"lowerLyric "_s;
    }

    void anyOtherIdentifierGivesTheCenteredLyric()
    {
        QFETCH(QString, templateID);
        QCOMPARE(withoutIdentifiers(designOfAll(templateID)),
                 withoutIdentifiers(designOfAll(u"centerLyric"_s)));
    }

    void aMissingFooterIsReplacedByALabel_data()
    {
        QTest::addColumn<QString>("expected");
        QTest::newRow("scriptureReading") << u"Scripture"_s;
        QTest::newRow("announcement") << u"Announcement"_s;
    }

    void aMissingFooterIsReplacedByALabel()
    {
        const QString templateID = QString::fromLatin1(QTest::currentDataTag());
        const SlideDesign design = ProjectTemplates::design(templateID, givenTitle, givenBody);
        QCOMPARE(design.elements.last().name, u"Footer"_s);
        QTEST(design.elements.last().text->text, "expected");
    }

    void anEmptyFooterIsShownAsItIs()
    {
        const SlideDesign design =
            ProjectTemplates::design(u"scriptureReading"_s, givenTitle, givenBody, QString());
        QCOMPARE(design.elements.last().text->text, QString());
    }

    void onlyTheImageTemplateTakesTheImageAndOnlyThenIsItsBackgroundOne()
    {
        for (const QString &id : catalogueIDs()) {
            const SlideDesign without = ProjectTemplates::design(id, givenTitle, givenBody);
            const SlideDesign with =
                ProjectTemplates::design(id, givenTitle, givenBody, {}, someImage());
            SlideBackground expected = without.background;
            QVERIFY(!expected.image);
            QVERIFY(expected.kind != SlideBackgroundKind::image);
            if (id == u"imageBackgroundLyric"_s) {
                expected.kind = SlideBackgroundKind::image;
                expected.image = someImage();
            }
            QVERIFY2(with.background == expected, qPrintable(id));
            QVERIFY2(withoutIdentifiers(with.elements) == withoutIdentifiers(without.elements),
                     qPrintable(id));
        }
    }

    void twoDesignsOfTheSameInputsDifferOnlyInTheirLayersIdentifiers()
    {
        QSet<QString> ids;
        qsizetype layerCount = 0;
        for (const QString &id : catalogueIDs()) {
            const SlideDesign one = designOfAll(id);
            const SlideDesign other = designOfAll(id);
            QVERIFY2(withoutIdentifiers(one) == withoutIdentifiers(other), qPrintable(id));
            for (const SlideElement &element : one.elements + other.elements)
                ids.insert(element.id);
            layerCount += one.elements.size() + other.elements.size();
        }
        QCOMPARE(ids.size(), layerCount);
    }

    void everyTypeOfItemHasADefaultTemplate_data()
    {
        QTest::addColumn<ServiceItemType>("type");
        QTest::addColumn<QString>("expected");
        QTest::newRow("welcome") << ServiceItemType::welcome << u"welcome"_s;
        QTest::newRow("song") << ServiceItemType::song << u"centerLyric"_s;
        QTest::newRow("scripture") << ServiceItemType::scripture << u"scriptureReading"_s;
        QTest::newRow("message") << ServiceItemType::message << u"sermonTitle"_s;
        QTest::newRow("announcement") << ServiceItemType::announcement << u"announcement"_s;
        QTest::newRow("closing") << ServiceItemType::closing << u"closing"_s;
        QTest::newRow("custom") << ServiceItemType::custom << u"minimalDark"_s;
    }

    void everyTypeOfItemHasADefaultTemplate()
    {
        QFETCH(ServiceItemType, type);
        QTEST(ProjectTemplates::defaultTemplate(type), "expected");
    }

    void aNewSlideCarriesItsInputsAndTheirDesign()
    {
        const Slide slide = ProjectTemplates::slide(
            givenTitle, givenBody, 7, u"imageBackgroundLyric"_s, givenFooter, someImage());
        QCOMPARE(slide.title, givenTitle);
        QCOMPARE(slide.body, givenBody);
        QCOMPARE(slide.orderIndex, 7);
        QCOMPARE(slide.footer, givenFooter);
        QCOMPARE(slide.image, someImage());
        QVERIFY(!slide.audio);
        QCOMPARE(withoutIdentifiers(slide.design),
                 withoutIdentifiers(ProjectTemplates::design(u"imageBackgroundLyric"_s, givenTitle,
                                                             givenBody, givenFooter, someImage())));
        const Slide other = ProjectTemplates::slide(givenTitle, givenBody, 7, u"closing"_s);
        QVERIFY(!slide.id.isEmpty());
        QVERIFY(other.id != slide.id);
    }
};

QUENARA_TEST(TestProjectTemplates)

} // namespace tst_project_templates

#include "tst_project_templates.moc"
