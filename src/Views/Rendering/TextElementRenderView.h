#pragma once

#include "SlideDesignModels.h"

#include <QPainter>
#include <QRectF>

namespace quenara {

/// A text layer.
struct TextElementRenderView
{
    TextElementProperties text;
    double scale; ///< points of the target for one canvas unit

    /// Paints into the layer's \a box, in points of the target. Shadow and outline may reach
    /// beyond it.
    void paint(QPainter &painter, const QRectF &box) const;
};

} // namespace quenara
