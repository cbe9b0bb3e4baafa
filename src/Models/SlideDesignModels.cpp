#include "SlideDesignModels.h"

#include "Identifier.h"

#include <algorithm>
#include <iterator>
#include <vector>

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

namespace {

/// The design of a slide without a text, which still lacks its layer's identifier.
SlideDesign blankLyric()
{
    SlideElement lyric;
    lyric.name = QStringLiteral("Lyric");
    lyric.kind = SlideElementKind::songLyricText;
    lyric.frame = {220, 340, 1480, 360};
    lyric.zIndex = 10;
    lyric.text = TextElementProperties::lyric({});
    return {
        .canvasSize = {1920, 1080},
        .background = SlideBackground::defaultDark(),
        .elements = {lyric},
        .themeId = rawValue(SlideTemplateID::centerLyric),
        .safeAreaEnabled = true,
    };
}

} // namespace

SlideDesign SlideDesign::centeredLyric(const QString &text, const QString &themeId)
{
    // Shared by all, since a document may have any number of slides without a design.
    static const SlideDesign blank = blankLyric();
    SlideDesign design = blank;
    SlideElement &lyric = design.elements.first();
    lyric.id = newIdentifier();
    if (!text.isEmpty())
        lyric.text->text = text;
    if (themeId != *blank.themeId)
        design.themeId = themeId;
    return design;
}

QList<SlideElement> SlideDesign::visibleElementsInDrawingOrder(qsizetype most) const
{
    // Addresses are sorted, since there may be many times more elements than are wanted.
    std::vector<const SlideElement *> order;
    order.reserve(std::size_t(elements.size()));
    for (const SlideElement &element : elements) {
        if (element.visible)
            order.push_back(&element);
    }
    const auto isBelow = [](const SlideElement *a, const SlideElement *b) {
        return a->zIndex < b->zIndex;
    };
    if (!std::is_sorted(order.cbegin(), order.cend(), isBelow))
        std::stable_sort(order.begin(), order.end(), isBelow);
    const qsizetype count = std::min(qsizetype(order.size()), most);
    QList<SlideElement> visible;
    visible.reserve(count);
    std::transform(order.cend() - count, order.cend(), std::back_inserter(visible),
                   [](const SlideElement *element) { return *element; });
    return visible;
}

std::optional<QString> SlideDesign::firstTextElementID() const
{
    const auto found = std::find_if(elements.cbegin(), elements.cend(),
                                    [](const SlideElement &e) { return e.text.has_value(); });
    return found == elements.cend() ? std::nullopt : std::optional(found->id);
}

} // namespace quenara
