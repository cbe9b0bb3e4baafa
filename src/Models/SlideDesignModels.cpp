#include "SlideDesignModels.h"

#include "Identifier.h"

#include <algorithm>
#include <iterator>

namespace quenara {

SlideBackground SlideBackground::defaultDark()
{
    return {
        .kind = SlideBackgroundKind::gradient,
        .solidColor = RGBAColor::darkCanvas,
        .gradient = GradientBackground{.startColor = RGBAColor::fromRgb(0x05070b),
                                       .endColor = RGBAColor::fromRgb(0x172033),
                                       .direction = GradientDirection::diagonal},
        .image = std::nullopt,
        .video = std::nullopt,
        .blurAmount = 0,
        .dimAmount = 0.18,
    };
}

SlideBackground SlideBackground::minimalDark()
{
    SlideBackground background;
    background.kind = SlideBackgroundKind::solid;
    background.solidColor = RGBAColor::deeperCanvas;
    return background;
}

QString TextElementProperties::displayText() const
{
    return uppercase ? text.toUpper() : text;
}

TextElementProperties TextElementProperties::lyric(const QString &text)
{
    return {
        .text = text,
        .fontFamily = QStringLiteral("Avenir Next"),
        .fontSize = 78,
        .weight = TextFontWeight::semibold,
        .textColor = RGBAColor::nearWhite,
        .alignment = TextAlignmentValue::center,
        .lineHeight = 1.12,
        .characterSpacing = 0,
        .uppercase = false,
        .shadow = TextShadow::soft,
        .outline = std::nullopt,
        .backgroundFill = std::nullopt,
        .padding = 18,
    };
}

SlideDesign SlideDesign::centeredLyric(const QString &text, const QString &themeId)
{
    SlideElement lyric;
    lyric.id = newIdentifier();
    lyric.name = QStringLiteral("Lyric");
    lyric.kind = SlideElementKind::songLyricText;
    lyric.frame = {220, 340, 1480, 360};
    lyric.zIndex = 10;
    lyric.text = TextElementProperties::lyric(text);
    return {
        .canvasSize = {1920, 1080},
        .background = SlideBackground::defaultDark(),
        .elements = {lyric},
        .themeId = themeId,
        .safeAreaEnabled = true,
    };
}

QList<SlideElement> SlideDesign::visibleElementsInDrawingOrder() const
{
    QList<SlideElement> visible;
    std::copy_if(elements.cbegin(), elements.cend(), std::back_inserter(visible),
                 [](const SlideElement &element) { return element.visible; });
    std::stable_sort(
        visible.begin(), visible.end(),
        [](const SlideElement &a, const SlideElement &b) { return a.zIndex < b.zIndex; });
    return visible;
}

std::optional<QString> SlideDesign::firstTextElementID() const
{
    const auto found = std::find_if(elements.cbegin(), elements.cend(),
                                    [](const SlideElement &e) { return e.text.has_value(); });
    return found == elements.cend() ? std::nullopt : std::optional(found->id);
}

} // namespace quenara
