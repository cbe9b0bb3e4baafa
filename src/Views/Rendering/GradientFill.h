#pragma once

#include "SlideDesignModels.h"

#include <QColor>
#include <QPainter>
#include <QRectF>

namespace quenara {

/// Two colours that run into one another over a slide.
struct GradientFill
{
    GradientDirection direction;
    QColor start;
    QColor end;
    double endRadius; ///< of a soft centre; in the painter's coordinates

    /// The painter may be moved and scaled, but not turned. Fills whole device pixels.
    void paint(QPainter &painter, const QRectF &slide) const;
};

} // namespace quenara
