#pragma once

#include "SlideDesignModels.h"

#include <QPainter>
#include <QRectF>

#include <optional>

namespace quenara {

/// A shape layer that fills its box. Paints nothing without properties. Stroke width and corner
/// radius are points of the target at every scale.
struct ShapeElementRenderView
{
    SharedOptional<ShapeProperties> shape;

    void paint(QPainter &painter, const QRectF &box) const;

    /// Whether the shape has an outline.
    [[nodiscard]] bool isStroked() const;
};

} // namespace quenara
