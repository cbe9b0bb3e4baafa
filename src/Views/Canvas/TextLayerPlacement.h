#pragma once

#include "SlideDesignModels.h"

#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QTransform>

namespace quenara {

/// Where the text of a layer is edited on the canvas. What its functions give is in points of the
/// canvas.
struct TextLayerPlacement
{
    CanvasFrame frame; ///< canvas units
    double rotation = 0; ///< degrees, clockwise
    double padding = 0; ///< canvas units
    QPointF slideTopLeft; ///< points of the canvas
    double scale = 1; ///< points for one canvas unit; 0 without a slide

    [[nodiscard]] bool isTurned() const;
    /// The layer's box before its rotation.
    [[nodiscard]] QRectF box() const;
    /// The area on which the text is edited, before its rotation: the box and, where the padding is
    /// narrow, some room around it, so that the text need not move. Never too small to be seen.
    [[nodiscard]] QRectF plate() const;
    /// The rotated plate, with \a margin points more on every side.
    [[nodiscard]] QPolygonF outline(double margin) const;
    /// Maps points from the top left of the box to points of the canvas.
    [[nodiscard]] QTransform fromBox() const;
};

} // namespace quenara
