#include "LowerThirdElementRenderView.h"

#include "Fonts.h"
#include "RenderCaches.h"

#include <algorithm>

namespace quenara {

namespace {

// Canvas units.
constexpr double inset = 28;
constexpr double barWidth = 8;
constexpr double barGap = 18;
constexpr double textLeft = inset + barWidth + barGap;
constexpr double lineGap = 6;
constexpr double titleSize = 42;
constexpr double subtitleSize = 26;
constexpr float subtitleOpacity = 0.78F;

constexpr double lineHeight = 1.25; // of the font size: room for accents and descenders
constexpr double tallestLine = 4; // of the one above, in faces of any script

TextElementProperties lineOf(const QString &text, double size, TextFontWeight weight)
{
    TextElementProperties line;
    line.text = text.first(std::min(text.size(), TextBlock::longestText)).simplified();
    line.fontFamily = systemFontFamily();
    line.fontSize = size;
    line.weight = weight;
    return line;
}

} // namespace

std::array<LowerThirdElementRenderView::Line, 2> LowerThirdElementRenderView::lines(
    const QSizeF &size, RenderCaches &caches) const
{
    const TextElementProperties title = lineOf(lowerThird->title, titleSize, TextFontWeight::bold);
    const TextElementProperties subtitle =
        lineOf(lowerThird->subtitle, subtitleSize, TextFontWeight::medium);
    // One that is empty leaves its room to the other.
    const double titleHeight = title.text.isEmpty() ? 0 : titleSize * lineHeight;
    const double subtitleHeight = subtitle.text.isEmpty() ? 0 : subtitleSize * lineHeight;
    const double gap = titleHeight > 0 && subtitleHeight > 0 ? lineGap : 0;
    const double top = (size.height() - titleHeight - gap - subtitleHeight) / 2;
    const double width = size.width() - inset - textLeft;
    // Centred on its line, which faces of some scripts reach beyond, the block is cut in width
    // alone.
    const auto lineAt = [&](double y, const TextElementProperties &text, double height) {
        const QSizeF room(width, tallestLine * height);
        return Line{.position = {textLeft, y - (room.height() - height) / 2},
                    .block =
                        caches.textBlocks.block(text, room, {.smallestFit = 1, .lineMaximum = 1})};
    };
    return {lineAt(top, title, titleHeight),
            lineAt(top + titleHeight + gap, subtitle, subtitleHeight)};
}

void LowerThirdElementRenderView::paint(QPainter &painter, const QRectF &box,
                                        RenderCaches &caches) const
{
    if (!lowerThird || box.isEmpty() || scale <= 0)
        return;
    painter.fillRect(box, lowerThird->fill.toColor());

    painter.save();
    painter.setClipRect(box, Qt::IntersectClip);
    painter.translate(box.topLeft());
    painter.scale(scale, scale);
    const QSizeF size = box.size() / scale;
    painter.fillRect(QRectF(inset, 0, barWidth, size.height()), lowerThird->accent.toColor());
    const auto draw = [&](const Line &line, const QColor &color) {
        painter.save();
        painter.translate(line.position);
        painter.setPen(color);
        line.block->draw(painter, caches);
        painter.restore();
    };
    const auto [title, subtitle] = lines(size, caches);
    draw(title, Qt::white);
    draw(subtitle, QColor::fromRgbF(1, 1, 1, subtitleOpacity));
    painter.restore();
}

} // namespace quenara
