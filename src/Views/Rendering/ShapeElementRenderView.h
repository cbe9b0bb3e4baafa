#pragma once

#include "SlideDesignModels.h"

#include <QPainter>
#include <QRectF>

#include <optional>

namespace quenara {

/// A shape layer filling its box; nothing without properties. Stroke width and corner radius are
/// points of the target at every scale.
struct ShapeElementRenderView
{
    std::optional<ShapeProperties> shape;

    void paint(QPainter &painter, const QRectF &box) const;

    /// Whether a line is drawn around what is filled.
    bool isStroked() const;
};

} // namespace quenara
