#pragma once

#include <QColor>
#include <QFontMetricsF>
#include <QRectF>
#include <QString>

class QPainter;

namespace quenara {

/// \a text in one line that is no wider than \a width (points), an ellipsis where \a mode leaves
/// something out. A text of any length takes no longer than one that fills the width.
[[nodiscard]] QString elidedText(const QString &text, const QFontMetricsF &metrics,
                                 Qt::TextElideMode mode, double width);

/// Draws \a text in one line in the height's middle of \a box, with an ellipsis at its end where it
/// does not fit.
void drawElidedText(QPainter &painter, const QString &text, const QFont &font, const QColor &color,
                    const QRectF &box, Qt::Alignment alignment = Qt::AlignLeft);

} // namespace quenara
