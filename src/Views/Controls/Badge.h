#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>
#include <QString>

namespace quenara {

/// A word in white capitals on a rounded rectangle, or in colour on an outline.
struct Badge
{
    QString text;
    QColor color;
    double pixelSize = 10;
    bool isFilled = true;
    double horizontalPadding = 8;
    double verticalPadding = 2.5; ///< above and below the line
    double cornerRadius = 5;

    /// Whole points.
    [[nodiscard]] QSizeF size() const;
    void paint(QPainter &painter, const QPointF &topLeft) const;
};

} // namespace quenara
