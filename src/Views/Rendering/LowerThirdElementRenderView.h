#pragma once

#include "SlideDesignModels.h"

#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <array>
#include <memory>

namespace quenara {

class TextBlock;
struct RenderCaches;

/// A lower third: an accent bar and two lines of text over a fill. Paints nothing without
/// properties.
struct LowerThirdElementRenderView
{
    /// A line as it is laid out, and where its block stands in the layer, in canvas units.
    struct Line
    {
        QPointF position;
        std::shared_ptr<TextBlock> block;
    };

    SharedOptional<LowerThirdProperties> lowerThird;
    double scale; ///< points of the target for one canvas unit

    /// The title and the subtitle in a layer of \a size, in canvas units. Asks for properties.
    [[nodiscard]] std::array<Line, 2> lines(const QSizeF &size, RenderCaches &caches) const;

    void paint(QPainter &painter, const QRectF &box, RenderCaches &caches) const;
};

} // namespace quenara
