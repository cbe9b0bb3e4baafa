#include "LowerThirdElementRenderView.h"

#include "SlideFonts.h"

#include <QFontMetricsF>

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

/// One line, cut where it is too long.
void drawLine(QPainter &painter, const QString &text, const QFont &font, const QRectF &line)
{
    painter.setFont(font);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     QFontMetricsF(font).elidedText(text, Qt::ElideRight, line.width()));
}

} // namespace

void LowerThirdElementRenderView::paint(QPainter &painter, const QRectF &box) const
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

    const QFont titleFont = systemFont(titleSize, QFont::Bold);
    const QFont subtitleFont = systemFont(subtitleSize, QFont::Medium);
    const double titleHeight = QFontMetricsF(titleFont).height();
    const double subtitleHeight = QFontMetricsF(subtitleFont).height();
    const double top = (height - titleHeight - lineGap - subtitleHeight) / 2;
    painter.setPen(Qt::white);
    drawLine(painter, lowerThird->title, titleFont, {textLeft, top, textWidth, titleHeight});
    painter.setPen(QColor::fromRgbF(1, 1, 1, subtitleOpacity));
    drawLine(painter, lowerThird->subtitle, subtitleFont,
             {textLeft, top + titleHeight + lineGap, textWidth, subtitleHeight});
    painter.restore();
}

} // namespace quenara
