#include "ProjectModels.h"
#include "Records.h"
#include "TestMain.h"

#include <QTest>

using namespace quenara;
using namespace quenara::test;

namespace tst_slide_design {

namespace {

SlideElement layer(QStringView id, std::int64_t zIndex, bool visible = true)
{
    SlideElement element;
    element.id = id.toString();
    element.zIndex = zIndex;
    element.visible = visible;
    return element;
}

SlideElement textLayer(QStringView id)
{
    SlideElement element = layer(id, 0);
    element.text = TextElementProperties::lyric(QString());
    return element;
}

QStringList ids(const QList<SlideElement> &elements)
{
    QStringList list;
    for (const SlideElement &element : elements)
        list.append(element.id);
    return list;
}

} // namespace

class TestSlideDesign : public QObject
{
    Q_OBJECT

private slots:
    void theSoftShadowIsABlurredBlackBelow()
    {
        QCOMPARE(TextShadow::soft,
                 (TextShadow{.color = {0, 0, 0, 0.55}, .radius = 18, .x = 0, .y = 8}));
    }

    void theDefaultDarkBackgroundIsADiagonalGradient()
    {
        const SlideBackground background = SlideBackground::defaultDark();
        QCOMPARE(background.kind, SlideBackgroundKind::gradient);
        QCOMPARE(background.solidColor, RGBAColor::fromHex(u"#090b10"));
        QVERIFY(background.gradient);
        QCOMPARE(background.gradient->startColor, RGBAColor::fromHex(u"#05070b"));
        QCOMPARE(background.gradient->endColor, RGBAColor::fromHex(u"#172033"));
        QCOMPARE(background.gradient->direction, GradientDirection::diagonal);
        QVERIFY(!background.image);
        QVERIFY(!background.video);
        QCOMPARE(background.blurAmount, 0.0);
        QCOMPARE(background.dimAmount, 0.18);
    }

    void theMinimalDarkBackgroundIsOneColour()
    {
        const SlideBackground background = SlideBackground::minimalDark();
        QCOMPARE(background.kind, SlideBackgroundKind::solid);
        QCOMPARE(background.solidColor, RGBAColor::fromHex(u"#05070b"));
        QVERIFY(!background.gradient);
        QVERIFY(!background.image);
        QVERIFY(!background.video);
        QCOMPARE(background.blurAmount, 0.0);
        QCOMPARE(background.dimAmount, 0.0);
    }

    void theLyricStyleIsTheStandardTextStyle()
    {
        const auto lyric = TextElementProperties::lyric(QStringLiteral("Sing"));
        QCOMPARE(lyric.text, QStringLiteral("Sing"));
        QCOMPARE(lyric.fontFamily, QStringLiteral("Avenir Next"));
        QCOMPARE(lyric.fontSize, 78.0);
        QCOMPARE(lyric.weight, TextFontWeight::semibold);
        QCOMPARE(lyric.textColor, RGBAColor::nearWhite);
        QCOMPARE(lyric.alignment, TextAlignmentValue::center);
        QCOMPARE(lyric.lineHeight, 1.12);
        QCOMPARE(lyric.characterSpacing, 0.0);
        QVERIFY(!lyric.uppercase);
        QCOMPARE(lyric.shadow, TextShadow::soft);
        QVERIFY(!lyric.outline);
        QVERIFY(!lyric.backgroundFill);
        QCOMPARE(lyric.padding, 18.0);
    }

    void theCentredLyricDesignHoldsOneLyricLayer()
    {
        const SlideDesign design =
            SlideDesign::centeredLyric(QStringLiteral("Sing"), QStringLiteral("theme"));
        QCOMPARE(design.canvasSize, (CanvasSize{1920, 1080}));
        QCOMPARE(design.background, SlideBackground::defaultDark());
        QCOMPARE(design.themeId, QStringLiteral("theme"));
        QVERIFY(design.safeAreaEnabled);
        QCOMPARE(design.elements.size(), 1);

        SlideElement expected;
        expected.name = QStringLiteral("Lyric");
        expected.kind = SlideElementKind::songLyricText;
        expected.frame = {220, 340, 1480, 360};
        expected.rotation = 0;
        expected.opacity = 1;
        expected.locked = false;
        expected.visible = true;
        expected.zIndex = 10;
        expected.text = TextElementProperties::lyric(QStringLiteral("Sing"));
        QCOMPARE(withoutIdentifiers(design.elements.first()), expected);
    }

    void twoCentredLyricDesignsDifferOnlyInTheLayersIdentifier()
    {
        const SlideDesign one = SlideDesign::centeredLyric(QStringLiteral("Sing"), QString());
        const SlideDesign other = SlideDesign::centeredLyric(QStringLiteral("Sing"), QString());
        QVERIFY(one.elements.first().id != other.elements.first().id);
        QCOMPARE(withoutIdentifiers(one), withoutIdentifiers(other));
    }

    void aSlideWithoutADesignGetsTheCentredLyricOfItsBody_data()
    {
        QTest::addColumn<QString>("body");
        QTest::newRow("an empty body") << QString();
        QTest::newRow("two lines") << QStringLiteral("one\ntwo");
    }

    void aSlideWithoutADesignGetsTheCentredLyricOfItsBody()
    {
        QFETCH(QString, body);
        const Slide slide{.id = {},
                          .title = {},
                          .body = body,
                          .orderIndex = 0,
                          .footer = {},
                          .image = {},
                          .audio = {}};
        QCOMPARE(
            withoutIdentifiers(slide.design),
            withoutIdentifiers(SlideDesign::centeredLyric(body, QStringLiteral("centerLyric"))));
        QCOMPARE(slide.design.elements.first().text->text, body);
    }

    void textIsShownUpperCasedByTheFullRulesOfItsLetters()
    {
        auto text = TextElementProperties::lyric(QStringLiteral("Stra\u00dfe, \u00e9t\u00e9"));
        QCOMPARE(text.displayText(), QStringLiteral("Stra\u00dfe, \u00e9t\u00e9"));
        text.uppercase = true;
        QCOMPARE(text.displayText(), QStringLiteral("STRASSE, \u00c9T\u00c9"));
        QCOMPARE(text.text, QStringLiteral("Stra\u00dfe, \u00e9t\u00e9"));
    }

    void visibleLayersAreDrawnFromTheLowestUpAndEqualOnesInListOrder()
    {
        SlideDesign design;
        design.elements = {layer(u"top", 5), layer(u"first of two", 1), layer(u"hidden", 0, false),
                           layer(u"second of two", 1), layer(u"bottom", -3)};
        QCOMPARE(ids(design.visibleElementsInDrawingOrder()),
                 (QStringList{QStringLiteral("bottom"), QStringLiteral("first of two"),
                              QStringLiteral("second of two"), QStringLiteral("top")}));
    }

    void theFirstTextLayerIsFoundInListOrderWhateverItsHeightOrVisibility()
    {
        SlideDesign design;
        QVERIFY(!design.firstTextElementID());
        design.elements = {layer(u"shape", 0)};
        QVERIFY(!design.firstTextElementID());
        SlideElement hidden = textLayer(u"hidden text");
        hidden.visible = false;
        hidden.zIndex = 9;
        design.elements += {hidden, textLayer(u"text")};
        QCOMPARE(design.firstTextElementID(), QStringLiteral("hidden text"));
    }

    void theIdentityOfAFlattenedSlideIsThatOfItsSlide()
    {
        FlattenedSlide flattened;
        flattened.serviceItemID = QStringLiteral("item");
        flattened.slide.id = QStringLiteral("slide");
        QCOMPARE(flattened.id(), QStringLiteral("slide"));
    }
};

QUENARA_TEST(TestSlideDesign)

} // namespace tst_slide_design

#include "tst_slide_design.moc"
