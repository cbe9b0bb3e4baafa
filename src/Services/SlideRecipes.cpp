#include "SlideRecipes.h"

#include "Identifier.h"

#include <array>

namespace quenara {

namespace {

RGBAColor hex(const char16_t *digits)
{
    return RGBAColor::fromHex(digits);
}

constexpr RGBAColor washBlack = {0, 0, 0, 0.45};

SlideBackground solid(const RGBAColor &color)
{
    SlideBackground background;
    background.kind = SlideBackgroundKind::solid;
    background.solidColor = color;
    return background;
}

SlideBackground gradient(const RGBAColor &color, const char16_t *start, const char16_t *end,
                         GradientDirection direction, double dim)
{
    SlideBackground background;
    background.kind = SlideBackgroundKind::gradient;
    background.solidColor = color;
    background.gradient = GradientBackground{hex(start), hex(end), direction};
    background.dimAmount = dim;
    return background;
}

SlideElement layer(const char16_t *name, SlideElementKind kind, const CanvasFrame &frame, int z)
{
    SlideElement element;
    element.id = newIdentifier();
    element.name = QString::fromUtf16(name);
    element.kind = kind;
    element.frame = frame;
    element.zIndex = z;
    return element;
}

/// What a text layer of a template has of its own; the rest is the standard lyric style.
struct TextStyle
{
    double size;
    TextFontWeight weight;
    RGBAColor color;
    TextAlignmentValue alignment;
    std::optional<TextShadow> shadow = std::nullopt;
};

SlideElement textElement(const char16_t *name, SlideElementKind kind, const QString &text,
                         const CanvasFrame &frame, const TextStyle &style, int z)
{
    SlideElement element = layer(name, kind, frame, z);
    element.text = TextElementProperties::lyric(text);
    element.text->fontSize = style.size;
    element.text->weight = style.weight;
    element.text->textColor = style.color;
    element.text->alignment = style.alignment;
    element.text->shadow = style.shadow;
    return element;
}

SlideElement filledShape(const char16_t *name, const CanvasFrame &frame,
                         const ShapeProperties &shape, double opacity, int z)
{
    SlideElement element = layer(name, SlideElementKind::shape, frame, z);
    element.opacity = opacity;
    element.shape = shape;
    return element;
}

SlideElement accentLine(double y, int z)
{
    return filledShape(u"Amber Accent", {760, y, 400, 8},
                       {.kind = ShapeKind::capsule,
                        .fill = RGBAColor::amber,
                        .stroke = {},
                        .strokeWidth = 0,
                        .cornerRadius = 4},
                       0.92, z);
}

SlideElement flatRectangle(const char16_t *name, const CanvasFrame &frame, const RGBAColor &fill,
                           double opacity)
{
    return filledShape(name, frame,
                       {.kind = ShapeKind::rectangle,
                        .fill = fill,
                        .stroke = {},
                        .strokeWidth = 0,
                        .cornerRadius = 0},
                       opacity, 1);
}

SlideDesign composed(const SlideBackground &background, const QList<SlideElement> &elements)
{
    return {.canvasSize = {1920, 1080},
            .background = background,
            .elements = elements,
            .themeId = std::nullopt,
            .safeAreaEnabled = true};
}

using enum SlideElementKind;
using enum TextFontWeight;
constexpr auto left = TextAlignmentValue::left;
constexpr auto center = TextAlignmentValue::center;

SlideDesign centerLyric(const SlideContents &contents)
{
    return composed(
        gradient(RGBAColor::darkCanvas, u"#05070b", u"#182235", GradientDirection::diagonal, 0.08),
        {textElement(u"Lyric", songLyricText, contents.body, {220, 318, 1480, 430},
                     {82, semibold, RGBAColor::nearWhite, center, TextShadow::soft}, 10),
         accentLine(800, 2)});
}

SlideDesign lowerLyric(const SlideContents &contents)
{
    return composed(
        gradient(RGBAColor::charcoal, u"#081019", u"#111723", GradientDirection::vertical, 0.2),
        {textElement(u"Lyric", songLyricText, contents.body, {180, 610, 1560, 290},
                     {72, bold, RGBAColor::nearWhite, center, TextShadow::soft}, 10),
         flatRectangle(u"Bottom Wash", {0, 574, 1920, 506}, washBlack, 0.66)});
}

SlideDesign scriptureReading(const SlideContents &contents)
{
    return composed(
        solid(hex(u"#10151f")),
        {textElement(u"Reference", text, contents.title, {180, 122, 1560, 120},
                     {52, bold, RGBAColor::amber, left, TextShadow::soft}, 10),
         textElement(u"Scripture", scriptureText, contents.body, {180, 282, 1450, 560},
                     {56, medium, RGBAColor::nearWhite, left}, 11),
         textElement(u"Footer", text, contents.footer.value_or(QStringLiteral("Scripture")),
                     {180, 908, 760, 80}, {28, medium, hex(u"#aeb7c5"), left}, 12)});
}

SlideDesign sermonTitle(const SlideContents &contents)
{
    return composed(
        gradient(RGBAColor::charcoal, u"#16120d", u"#0b111b", GradientDirection::diagonal, 0.08),
        {textElement(u"Title", text, contents.title, {180, 326, 1560, 155},
                     {92, heavy, RGBAColor::nearWhite, center, TextShadow::soft}, 10),
         textElement(u"Subtitle", text, contents.body, {260, 510, 1400, 120},
                     {42, medium, hex(u"#d5c4a3"), center}, 11),
         accentLine(688, 3)});
}

SlideDesign welcome(const SlideContents &contents)
{
    return composed(
        gradient(hex(u"#121417"), u"#111723", u"#2b2114", GradientDirection::radialHint, 0.04),
        {textElement(u"Title", text, contents.title, {200, 300, 1520, 165},
                     {104, heavy, RGBAColor::nearWhite, center, TextShadow::soft}, 10),
         textElement(u"Subtitle", text, contents.body, {320, 500, 1280, 110},
                     {44, medium, hex(u"#efe0c4"), center}, 11),
         accentLine(660, 3)});
}

SlideDesign announcement(const SlideContents &contents)
{
    return composed(
        solid(hex(u"#f0eee8")),
        {flatRectangle(u"Accent Block", {0, 0, 135, 1080}, RGBAColor::warmAmber, 1),
         textElement(u"Title", text, contents.title, {245, 215, 1320, 150},
                     {76, heavy, hex(u"#181b20"), left}, 10),
         textElement(u"Body", text, contents.body, {250, 405, 1240, 340},
                     {54, medium, hex(u"#303640"), left}, 11),
         textElement(u"Footer", text, contents.footer.value_or(QStringLiteral("Announcement")),
                     {250, 840, 900, 80}, {30, semibold, hex(u"#88601f"), left}, 12)});
}

SlideDesign closing(const SlideContents &contents)
{
    return composed(
        gradient(RGBAColor::darkCanvas, u"#05070b", u"#0e1a16", GradientDirection::vertical, 0.04),
        {textElement(u"Title", text, contents.title, {260, 328, 1400, 140},
                     {88, bold, RGBAColor::nearWhite, center, TextShadow::soft}, 10),
         textElement(u"Body", text, contents.body, {310, 500, 1300, 185},
                     {54, medium, hex(u"#cad6ce"), center}, 11)});
}

SlideDesign minimalDark(const SlideContents &contents)
{
    return composed(SlideBackground::minimalDark(),
                    {textElement(u"Title", text, contents.title, {240, 300, 1440, 125},
                                 {72, bold, RGBAColor::nearWhite, center, TextShadow::soft}, 10),
                     textElement(u"Body", text, contents.body, {310, 470, 1300, 250},
                                 {52, medium, hex(u"#d7dce7"), center}, 11)});
}

SlideDesign warmAmber(const SlideContents &contents)
{
    return composed(
        gradient(hex(u"#25170b"), u"#0b0907", u"#5a3711", GradientDirection::diagonal, 0.08),
        {textElement(u"Lyric", songLyricText, contents.body, {210, 340, 1500, 360},
                     {78, bold, RGBAColor::nearWhite, center, TextShadow::soft}, 10)});
}

SlideDesign imageBackgroundLyric(const SlideContents &contents)
{
    SlideBackground background =
        gradient(RGBAColor::darkCanvas, u"#05070b", u"#1d2530", GradientDirection::diagonal, 0.48);
    if (contents.image)
        background.kind = SlideBackgroundKind::image;
    background.image = contents.image;
    return composed(background,
                    {textElement(u"Lyric", songLyricText, contents.body, {205, 560, 1510, 290},
                                 {70, bold, RGBAColor::nearWhite, center, TextShadow::soft}, 10)});
}

constexpr auto recipes = std::to_array<SlideRecipe>({
    {SlideTemplateID::centerLyric, "Large lyric centered with soft shadow", centerLyric},
    {SlideTemplateID::lowerLyric, "Lyric anchored low for motion or camera backgrounds",
     lowerLyric},
    {SlideTemplateID::scriptureReading, "Reference, passage, and small footer label",
     scriptureReading},
    {SlideTemplateID::sermonTitle, "Bold title slide with subtitle", sermonTitle},
    {SlideTemplateID::welcome, "Warm gathering opener", welcome},
    {SlideTemplateID::announcement, "Title, body, and clear visual hierarchy", announcement},
    {SlideTemplateID::closing, "Simple closing blessing or dismissal", closing},
    {SlideTemplateID::minimalDark, "Clean black room-safe slide", minimalDark},
    {SlideTemplateID::warmAmber, "Amber gradient with restrained accents", warmAmber},
    {SlideTemplateID::imageBackgroundLyric, "Image-ready lyric design with dim overlay",
     imageBackgroundLyric},
});
static_assert(entriesStandAtTheirCases(recipes, &SlideRecipe::id));

} // namespace

const SlideRecipe &slideRecipe(SlideTemplateID id)
{
    return recipes[std::size_t(id)];
}

} // namespace quenara
