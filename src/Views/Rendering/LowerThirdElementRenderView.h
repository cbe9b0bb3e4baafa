#pragma once

#include "SlideDesignModels.h"

#include <QPainter>
#include <QRectF>

#include <optional>

namespace quenara {

struct RenderCaches;

/// A lower third: an accent bar and two lines of text over a fill. Paints nothing without
/// properties.
struct LowerThirdElementRenderView
{
    SharedOptional<LowerThirdProperties> lowerThird;
    double scale; ///< points of the target for one canvas unit

    void paint(QPainter &painter, const QRectF &box, RenderCaches &caches) const;
};

} // namespace quenara
