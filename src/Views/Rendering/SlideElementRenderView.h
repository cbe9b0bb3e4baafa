#pragma once

#include "SlideDesignModels.h"

#include <QPainter>
#include <QRectF>

namespace quenara {

struct RenderCaches;

/// One layer's content, chosen by its kind.
struct SlideElementRenderView
{
    SlideElement element;
    double scale; ///< points of the target for one canvas unit

    void paint(QPainter &painter, const QRectF &box, RenderCaches &caches) const;

    /// Whether nothing of the content lies over another part of it.
    bool isOnePiece() const;

    /// How far the content may reach beyond its box, in points of the target.
    double overhang() const;
};

} // namespace quenara
