#pragma once

#include "SlideDesignModels.h"

#include <QPainter>
#include <QRectF>

namespace quenara {

struct RenderCaches;

/// The content of a layer, of any kind.
struct SlideElementRenderView
{
    SlideElement element;
    double scale; ///< points of the target for one canvas unit
    QRectF slide = {}; ///< beyond which nothing is seen, in points of the target; all is if null

    void paint(QPainter &painter, const QRectF &box, RenderCaches &caches) const;

    /// Whether no part of the content overlaps another.
    [[nodiscard]] bool isOnePiece() const;

    /// How far the content may reach beyond its box, in points of the target.
    [[nodiscard]] double overhang() const;
};

} // namespace quenara
