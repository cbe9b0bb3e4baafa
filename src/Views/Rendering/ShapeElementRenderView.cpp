#include "ShapeElementRenderView.h"

#include "RoundedShapes.h"

#include <algorithm>

namespace quenara {

namespace {

constexpr double miterLimit = 10;

double radiusOf(const ShapeProperties &shape, const QRectF &box)
{
    return shape.kind == ShapeKind::capsule ? std::min(box.width(), box.height()) / 2
                                            : shape.cornerRadius;
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
    const double radius = radiusOf(*shape, box);
    fillRoundedRect(painter, box, radius, shape->fill.toColor());
    if (isStroked()) {
        QPen pen(shape->stroke->toColor(), shape->strokeWidth, Qt::SolidLine, Qt::FlatCap,
                 Qt::MiterJoin);
        pen.setMiterLimit(miterLimit);
        painter.strokePath(continuousRoundedRect(box, radius), pen);
    }
}

} // namespace quenara
