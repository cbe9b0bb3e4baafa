#pragma once

#include <QColor>
#include <QPainter>
#include <QPen>
#include <QRectF>

namespace quenara {

/// The dashed outline of a rectangle. All lengths are in the painter's units.
struct DashedOutline
{
    QColor color;
    double width;
    double dash;
    double gap;

    void paint(QPainter &painter, const QRectF &rect) const
    {
        constexpr double miterLimit = 10;
        QPen pen(color, width, Qt::CustomDashLine, Qt::FlatCap, Qt::MiterJoin);
        pen.setDashPattern({dash / width, gap / width}); // Qt counts dashes in pen widths
        pen.setMiterLimit(miterLimit);
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect);
    }
};

} // namespace quenara
