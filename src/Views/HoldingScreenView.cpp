#include "HoldingScreenView.h"

#include "SlideFonts.h"
#include "ZelvoTheme.h"

#include <QFontMetricsF>

#include <cmath>

namespace quenara {

namespace {

constexpr double rowSpacing = 18;
constexpr double nameSize = 68;
constexpr double barWidth = 360;
constexpr double barHeight = 6;
constexpr double emptyRowSize = 24;

} // namespace

void HoldingScreenView::paint(QPainter &painter, const QRectF &area) const
{
    painter.fillRect(area, Qt::black);

    // An empty line of text holds the third row open under the bar.
    const QFont nameFont = systemFont(nameSize, QFont::Bold);
    const double nameHeight = QFontMetricsF(nameFont).height();
    const double emptyRowHeight = QFontMetricsF(systemFont(emptyRowSize, QFont::Normal)).height();
    const double height = nameHeight + rowSpacing + barHeight + rowSpacing + emptyRowHeight;
    const double top = area.center().y() - height / 2;

    const QColor color = colorFromHex(u"#f0b84a");
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setFont(nameFont);
    painter.setPen(color);
    painter.drawText(QRectF(area.left(), top, area.width(), nameHeight),
                     Qt::AlignCenter | Qt::TextDontClip, QStringLiteral("Quenara"));
    // On whole points, so that its edges are sharp.
    painter.fillRect(QRectF(std::round(area.center().x() - barWidth / 2),
                            std::round(top + nameHeight + rowSpacing), barWidth, barHeight),
                     color);
    painter.restore();
}

} // namespace quenara
