#pragma once

#include "SlideMedia.h"

#include <QPainter>
#include <QRectF>

#include <optional>

namespace quenara {

struct RenderCaches;

/// An image layer, or a placeholder if there is no image to show.
struct ImageElementRenderView
{
    SharedOptional<SlideMedia> media;
    QRectF slide = {}; ///< beyond which nothing of an upright layer is seen; all is if null

    void paint(QPainter &painter, const QRectF &box, RenderCaches &caches) const;
};

} // namespace quenara
