#include "ElidedText.h"

#include <QPainter>

#include <algorithm>

namespace quenara {

namespace {

constexpr QChar ellipsis = u'\u2026';
constexpr double widest = 10'000; // points; no window is wider
constexpr qsizetype longestSpacing = 100'000; // characters that are looked at for letters

/// All of \a text, or its first and last \a most characters if it has more.
QString withoutMiddle(const QString &text, qsizetype most)
{
    return text.size() > 2 * most ? text.first(most) + ellipsis + text.last(most) : text;
}

} // namespace

QString elidedText(const QString &text, const QFontMetricsF &metrics, Qt::TextElideMode mode,
                   double width)
{
    QString line = withoutMiddle(text, longestSpacing).simplified();
    // A letter is at least a point wide, so that no more than these are seen at either end.
    line = withoutMiddle(line, qsizetype(std::clamp(width, 0.0, widest)) + 1);
    return metrics.elidedText(line, mode, width);
}

void drawElidedText(QPainter &painter, const QString &text, const QFont &font, const QColor &color,
                    const QRectF &box, Qt::Alignment alignment)
{
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(box, int(alignment | Qt::AlignVCenter) | Qt::TextSingleLine,
                     elidedText(text, QFontMetricsF(font), Qt::ElideRight, box.width()));
}

} // namespace quenara
