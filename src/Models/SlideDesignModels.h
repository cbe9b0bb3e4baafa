#pragma once

#include "CanvasGeometry.h"
#include "RGBAColor.h"
#include "RawEnum.h"
#include "Record.h"
#include "SlideMedia.h"
#include "SlideTemplateID.h"

#include <QList>
#include <QString>

#include <cstdint>
#include <limits>
#include <optional>

namespace quenara {

enum class SlideBackgroundKind { solid, gradient, image, video };
template<>
inline constexpr auto rawCases<SlideBackgroundKind> = std::to_array<RawCase<SlideBackgroundKind>>({
    {SlideBackgroundKind::solid, "solid"},
    {SlideBackgroundKind::gradient, "gradient"},
    {SlideBackgroundKind::image, "image"},
    {SlideBackgroundKind::video, "video"},
});
static_assert(casesStandAtTheirValues<SlideBackgroundKind>);

enum class GradientDirection { vertical, horizontal, diagonal, radialHint };
template<>
inline constexpr auto rawCases<GradientDirection> = std::to_array<RawCase<GradientDirection>>({
    {GradientDirection::vertical, "vertical", "Vertical"},
    {GradientDirection::horizontal, "horizontal", "Horizontal"},
    {GradientDirection::diagonal, "diagonal", "Diagonal"},
    {GradientDirection::radialHint, "radialHint", "Soft Center"},
});
static_assert(casesStandAtTheirValues<GradientDirection>);

enum class SlideElementKind { text, scriptureText, songLyricText, image, shape, lowerThird };
template<>
inline constexpr auto rawCases<SlideElementKind> = std::to_array<RawCase<SlideElementKind>>({
    {SlideElementKind::text, "text"},
    {SlideElementKind::scriptureText, "scriptureText"},
    {SlideElementKind::songLyricText, "songLyricText"},
    {SlideElementKind::image, "image"},
    {SlideElementKind::shape, "shape"},
    {SlideElementKind::lowerThird, "lowerThird"},
});
static_assert(casesStandAtTheirValues<SlideElementKind>);

/// True for the three kinds whose payload is a text.
[[nodiscard]] constexpr bool isText(SlideElementKind kind)
{
    switch (kind) {
    case SlideElementKind::text:
    case SlideElementKind::scriptureText:
    case SlideElementKind::songLyricText:
        return true;
    case SlideElementKind::image:
    case SlideElementKind::shape:
    case SlideElementKind::lowerThird:
        break;
    }
    return false;
}

/// The platform's font weights of the same names; heavy is the one above bold.
enum class TextFontWeight { regular, medium, semibold, bold, heavy };
template<>
inline constexpr auto rawCases<TextFontWeight> = std::to_array<RawCase<TextFontWeight>>({
    {TextFontWeight::regular, "regular", "Regular"},
    {TextFontWeight::medium, "medium", "Medium"},
    {TextFontWeight::semibold, "semibold", "Semibold"},
    {TextFontWeight::bold, "bold", "Bold"},
    {TextFontWeight::heavy, "heavy", "Heavy"},
});
static_assert(casesStandAtTheirValues<TextFontWeight>);

/// Left is the leading edge, right the trailing one.
enum class TextAlignmentValue { left, center, right };
template<>
inline constexpr auto rawCases<TextAlignmentValue> = std::to_array<RawCase<TextAlignmentValue>>({
    {TextAlignmentValue::left, "left"},
    {TextAlignmentValue::center, "center"},
    {TextAlignmentValue::right, "right"},
});
static_assert(casesStandAtTheirValues<TextAlignmentValue>);

enum class ShapeKind { rectangle, capsule, line };
template<>
inline constexpr auto rawCases<ShapeKind> = std::to_array<RawCase<ShapeKind>>({
    {ShapeKind::rectangle, "rectangle"},
    {ShapeKind::capsule, "capsule"},
    {ShapeKind::line, "line"},
});
static_assert(casesStandAtTheirValues<ShapeKind>);

struct GradientBackground
{
    RGBAColor startColor;
    RGBAColor endColor;
    GradientDirection direction = GradientDirection::vertical;

    bool operator==(const GradientBackground &) const = default;
    static constexpr auto fields()
    {
        return FieldList{field("startColor", &GradientBackground::startColor),
                         field("endColor", &GradientBackground::endColor),
                         field("direction", &GradientBackground::direction)};
    }
};
static_assert(listsEveryMember<GradientBackground>);

/// A video, of which the name is shown; it is not played.
struct VideoBackground
{
    QString name;
    std::optional<QByteArray> dataUrl; ///< UTF-8 bytes that all copies share

    bool operator==(const VideoBackground &other) const
    {
        return name == other.name && dataUrl.has_value() == other.dataUrl.has_value()
            && (!dataUrl || areEqual(*dataUrl, *other.dataUrl));
    }
    static constexpr auto fields()
    {
        return FieldList{field("name", &VideoBackground::name),
                         field("dataUrl", &VideoBackground::dataUrl)};
    }
};
static_assert(listsEveryMember<VideoBackground>);

struct SlideBackground
{
    SlideBackgroundKind kind = SlideBackgroundKind::solid;
    RGBAColor solidColor; ///< kept for every kind
    SharedOptional<GradientBackground> gradient;
    SharedOptional<SlideMedia> image;
    SharedOptional<VideoBackground> video;
    double blurAmount = 0; ///< radius in canvas units
    double dimAmount = 0; ///< 0 to 1: opacity of the black laid over the background

    [[nodiscard]] static SlideBackground defaultDark();
    [[nodiscard]] static SlideBackground minimalDark();

    bool operator==(const SlideBackground &) const = default;
    static constexpr auto fields()
    {
        return FieldList{
            field("kind", &SlideBackground::kind),
            field("solidColor", &SlideBackground::solidColor),
            field("gradient", &SlideBackground::gradient),
            field("image", &SlideBackground::image),
            field("video", &SlideBackground::video),
            field("blurAmount", &SlideBackground::blurAmount),
            field("dimAmount", &SlideBackground::dimAmount),
        };
    }
};
static_assert(listsEveryMember<SlideBackground>);

/// A blurred copy behind a text; lengths in canvas units, y downwards.
struct TextShadow
{
    RGBAColor color;
    double radius = 0;
    double x = 0;
    double y = 0;

    static const TextShadow soft;

    bool operator==(const TextShadow &) const = default;
    static constexpr auto fields()
    {
        return FieldList{field("color", &TextShadow::color), field("radius", &TextShadow::radius),
                         field("x", &TextShadow::x), field("y", &TextShadow::y)};
    }
};
static_assert(listsEveryMember<TextShadow>);

inline constexpr TextShadow TextShadow::soft = {
    .color = {0, 0, 0, 0.55}, .radius = 18, .x = 0, .y = 8};

struct TextOutline
{
    RGBAColor color;
    double width = 0; ///< canvas units

    bool operator==(const TextOutline &) const = default;
    static constexpr auto fields()
    {
        return FieldList{field("color", &TextOutline::color), field("width", &TextOutline::width)};
    }
};
static_assert(listsEveryMember<TextOutline>);

struct TextElementProperties
{
    QString text;
    QString fontFamily;
    double fontSize = 0; ///< canvas units
    TextFontWeight weight = TextFontWeight::regular;
    RGBAColor textColor;
    TextAlignmentValue alignment = TextAlignmentValue::left;
    double lineHeight = 1; ///< multiple of the font size
    double characterSpacing = 0; ///< canvas units added after every character
    bool uppercase = false;
    std::optional<TextShadow> shadow;
    std::optional<TextOutline> outline;
    std::optional<RGBAColor> backgroundFill; ///< behind the whole text box
    double padding = 0; ///< inset of the text inside its frame, canvas units

    /// The text as shown: upper-cased by the full Unicode rules when uppercase is set.
    [[nodiscard]] QString displayText() const;

    /// The standard lyric style around \a text.
    [[nodiscard]] static TextElementProperties lyric(const QString &text);

    bool operator==(const TextElementProperties &) const = default;
    static constexpr auto fields()
    {
        return FieldList{
            field("text", &TextElementProperties::text),
            field("fontFamily", &TextElementProperties::fontFamily),
            field("fontSize", &TextElementProperties::fontSize),
            field("weight", &TextElementProperties::weight),
            field("textColor", &TextElementProperties::textColor),
            field("alignment", &TextElementProperties::alignment),
            field("lineHeight", &TextElementProperties::lineHeight),
            field("characterSpacing", &TextElementProperties::characterSpacing),
            field("uppercase", &TextElementProperties::uppercase),
            field("shadow", &TextElementProperties::shadow),
            field("outline", &TextElementProperties::outline),
            field("backgroundFill", &TextElementProperties::backgroundFill),
            field("padding", &TextElementProperties::padding),
        };
    }
};
static_assert(listsEveryMember<TextElementProperties>);

struct ShapeProperties
{
    ShapeKind kind = ShapeKind::rectangle;
    RGBAColor fill;
    std::optional<RGBAColor> stroke;
    double strokeWidth = 0; ///< screen points, not scaled with the canvas
    double cornerRadius = 0; ///< screen points, not scaled with the canvas

    bool operator==(const ShapeProperties &) const = default;
    static constexpr auto fields()
    {
        return FieldList{
            field("kind", &ShapeProperties::kind),
            field("fill", &ShapeProperties::fill),
            field("stroke", &ShapeProperties::stroke),
            field("strokeWidth", &ShapeProperties::strokeWidth),
            field("cornerRadius", &ShapeProperties::cornerRadius),
        };
    }
};
static_assert(listsEveryMember<ShapeProperties>);

struct LowerThirdProperties
{
    QString title;
    QString subtitle;
    RGBAColor fill;
    RGBAColor accent;

    bool operator==(const LowerThirdProperties &) const = default;
    static constexpr auto fields()
    {
        return FieldList{field("title", &LowerThirdProperties::title),
                         field("subtitle", &LowerThirdProperties::subtitle),
                         field("fill", &LowerThirdProperties::fill),
                         field("accent", &LowerThirdProperties::accent)};
    }
};
static_assert(listsEveryMember<LowerThirdProperties>);

/// A layer. The payload that matters is the one of its kind: text for the three text kinds, image,
/// shape and lowerThird for theirs.
struct SlideElement
{
    QString id;
    QString name; ///< shown in the layer list
    SlideElementKind kind = SlideElementKind::text;
    CanvasFrame frame;
    double rotation = 0; ///< degrees, clockwise as seen on screen
    double opacity = 1; ///< 0 to 1
    bool locked = false;
    bool visible = true;
    std::int64_t zIndex = 0; ///< drawing order, higher on top; ties keep list order
    SharedOptional<TextElementProperties> text;
    SharedOptional<SlideMedia> image;
    SharedOptional<ShapeProperties> shape;
    SharedOptional<LowerThirdProperties> lowerThird;

    bool operator==(const SlideElement &) const = default;
    static constexpr auto fields()
    {
        return FieldList{
            field("id", &SlideElement::id),
            field("name", &SlideElement::name),
            field("kind", &SlideElement::kind),
            field("frame", &SlideElement::frame),
            field("rotation", &SlideElement::rotation),
            field("opacity", &SlideElement::opacity),
            field("locked", &SlideElement::locked),
            field("visible", &SlideElement::visible),
            field("zIndex", &SlideElement::zIndex),
            field("text", &SlideElement::text),
            field("image", &SlideElement::image),
            field("shape", &SlideElement::shape),
            field("lowerThird", &SlideElement::lowerThird),
        };
    }
};
static_assert(listsEveryMember<SlideElement>);

/// The designed layout of a slide.
struct SlideDesign
{
    CanvasSize canvasSize;
    SlideBackground background;
    QList<SlideElement> elements;
    SharedOptional<QString> themeId; ///< the template that made the design
    bool safeAreaEnabled = true; ///< show the title-safe guide in editors

    /// The default design of a slide: one lyric layer over SlideBackground::defaultDark().
    [[nodiscard]] static SlideDesign centeredLyric(
        const QString &text, const QString &themeId = rawValue(SlideTemplateID::centerLyric));

    /// The visible elements from the lowest zIndex up; equal ones keep their list order. Of more
    /// than \a most, the topmost.
    [[nodiscard]] QList<SlideElement> visibleElementsInDrawingOrder(
        qsizetype most = std::numeric_limits<qsizetype>::max()) const;

    /// The id of the first element in list order that carries text properties.
    [[nodiscard]] std::optional<QString> firstTextElementID() const;

    bool operator==(const SlideDesign &) const = default;
    static constexpr auto fields()
    {
        return FieldList{
            field("canvasSize", &SlideDesign::canvasSize),
            field("background", &SlideDesign::background),
            field("elements", &SlideDesign::elements),
            field("themeId", &SlideDesign::themeId),
            field("safeAreaEnabled", &SlideDesign::safeAreaEnabled),
        };
    }
};
static_assert(listsEveryMember<SlideDesign>);

} // namespace quenara
