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
constexpr double lineGap = 6;
constexpr double titleSize = 42;
constexpr double subtitleSize = 26;
constexpr float subtitleOpacity = 0.78F;

constexpr double lineHeight = 1.25; // of the font size: room for accents and descenders

TextElementProperties lineOf(const QString &text, double size, TextFontWeight weight)
{
    TextElementProperties line;
    line.text = text.first(std::min(text.size(), TextBlock::longestText)).simplified();
    line.fontFamily = systemFontFamily();
    line.fontSize = size;
    line.weight = weight;
    return line;
}

/// Draws one line of text in the painter's pen, truncated to fit.
void drawLine(QPainter &painter, const TextElementProperties &text, const QRectF &line,
              RenderCaches &caches)
{
    painter.save();
    painter.translate(line.topLeft());
    caches.textBlocks.block(text, line.size(), {.smallestFit = 1, .lineMaximum = 1})
        ->draw(painter, caches);
    painter.restore();
}

} // namespace

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
    const double height = box.height() / scale;
    const double textLeft = inset + barWidth + barGap;
    const double textWidth = box.width() / scale - inset - textLeft;
    painter.fillRect(QRectF(inset, 0, barWidth, height), lowerThird->accent.toColor());

    const TextElementProperties title = lineOf(lowerThird->title, titleSize, TextFontWeight::bold);
    const TextElementProperties subtitle =
        lineOf(lowerThird->subtitle, subtitleSize, TextFontWeight::medium);
    // One that is empty leaves its room to the other.
    const double titleHeight = title.text.isEmpty() ? 0 : titleSize * lineHeight;
    const double subtitleHeight = subtitle.text.isEmpty() ? 0 : subtitleSize * lineHeight;
    const double gap = titleHeight > 0 && subtitleHeight > 0 ? lineGap : 0;
    const double top = (height - titleHeight - gap - subtitleHeight) / 2;
    painter.setPen(Qt::white);
    drawLine(painter, title, {textLeft, top, textWidth, titleHeight}, caches);
    painter.setPen(QColor::fromRgbF(1, 1, 1, subtitleOpacity));
    drawLine(painter, subtitle, {textLeft, top + titleHeight + gap, textWidth, subtitleHeight},
             caches);
    painter.restore();
}

} // namespace quenara
