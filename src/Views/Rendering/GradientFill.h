#pragma once

#include "SlideDesignModels.h"

#include <QBrush>
#include <QColor>
#include <QPainter>
#include <QRectF>

namespace quenara {

/// A gradient between two colours that fills a slide. What lies between two shades that can be
/// shown is shown as a pattern of both that begins at the slide's top left pixel: on average it is
/// exact, and nothing shows where one shade ends and the next begins.
struct GradientFill
{
    GradientDirection direction;
    QColor start;
    QColor end;
    double endRadius; ///< where a radial gradient ends, in the painter's coordinates

    /// Fills \a slide, to whole device pixels. The painter may be translated and scaled, but not
    /// rotated.
    void paint(QPainter &painter, const QRectF &slide) const;

    [[nodiscard]] bool isOpaque() const;

private:
    QGradient shading(const QRectF &slide) const;
};

} // namespace quenara
