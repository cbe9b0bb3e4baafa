#include "Badge.h"

#include "Fonts.h"
#include "RoundedShapes.h"

#include <QFontMetricsF>

#include <cmath>

namespace quenara {

QSizeF Badge::size() const
{
    const QFontMetricsF metrics(systemFont(pixelSize, QFont::ExtraBold));
    return {std::ceil(metrics.horizontalAdvance(text) + 2 * horizontalPadding),
            std::ceil(metrics.height() + 2 * verticalPadding)};
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
    const QFont font = systemFont(pixelSize, QFont::ExtraBold);
    painter.setFont(font);
    const double baseline = box.top() + verticalPadding + QFontMetricsF(font).ascent();
    painter.drawText(QPointF(box.left() + horizontalPadding, baseline), text);
    painter.restore();
}

} // namespace quenara
