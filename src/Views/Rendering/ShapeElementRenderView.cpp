#include "ShapeElementRenderView.h"

#include "DevicePixels.h"
#include "RoundedShapes.h"

#include <algorithm>

namespace quenara {

namespace {

constexpr double miterLimit = 10;

QPainterPath outline(const ShapeProperties &shape, const QRectF &box)
{
    if (shape.kind == ShapeKind::capsule)
        return continuousRoundedRect(box, std::min(box.width(), box.height()) / 2);
    return continuousRoundedRect(box, shape.cornerRadius);
}

} // namespace

bool ShapeElementRenderView::isStroked() const
{
    return shape && shape->kind != ShapeKind::line && shape->stroke && shape->strokeWidth > 0;
}

void ShapeElementRenderView::paint(QPainter &painter, const QRectF &box) const
{
    if (!shape || box.isEmpty())
        return;
    if (shape->kind == ShapeKind::line) {
        painter.fillRect(box, shape->fill.toColor());
        return;
    }
    const QPainterPath path = outline(*shape, box);
    fillInBands(painter, path, shape->fill.toColor());
    if (isStroked()) {
        QPen pen(shape->stroke->toColor(), shape->strokeWidth, Qt::SolidLine, Qt::FlatCap,
                 Qt::MiterJoin);
        pen.setMiterLimit(miterLimit);
        painter.strokePath(path, pen);
    }
}

} // namespace quenara
