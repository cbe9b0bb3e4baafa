#include "Badge.h"

#include "RoundedShapes.h"
#include "SlideFonts.h"

#include <QFontMetricsF>

namespace quenara {

namespace {

constexpr double cornerRadius = 5;
constexpr double horizontalPadding = 8;
constexpr double verticalPadding = 5;

} // namespace

QSizeF Badge::size() const
{
    const QFontMetricsF metrics(systemFont(pixelSize, QFont::ExtraBold));
    return {metrics.horizontalAdvance(text) + 2 * horizontalPadding,
            metrics.capHeight() + 2 * verticalPadding};
}

void Badge::paint(QPainter &painter, const QPointF &topLeft) const
{
    const QRectF box(topLeft, size());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (isFilled) {
        painter.fillPath(continuousRoundedRect(box, cornerRadius), color);
    } else {
        painter.strokePath(continuousRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius),
                           QPen(color, 1));
    }
    painter.setPen(isFilled ? QColor(Qt::white) : color);
    painter.setFont(systemFont(pixelSize, QFont::ExtraBold));
    const double baseline = box.bottom() - verticalPadding;
    painter.drawText(QPointF(box.left() + horizontalPadding, baseline), text);
    painter.restore();
}

} // namespace quenara
