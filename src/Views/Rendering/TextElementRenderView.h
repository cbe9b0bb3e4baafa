#pragma once

#include "SlideDesignModels.h"

#include <QPainter>
#include <QRectF>

namespace quenara {

class TextBlock;
struct RenderCaches;

/// A text layer: its fill, what is blurred from its letters, its letters.
struct TextElementRenderView
{
    TextElementProperties text;
    double scale; ///< points of the target for one canvas unit

    /// Paints into the layer's \a box, in points of the target. Shadow and outline may reach
    /// beyond it. \a laidOut, if given, is the same text already laid out in the box without its
    /// padding.
    void paint(QPainter &painter, const QRectF &box, RenderCaches &caches,
               TextBlock *laidOut = nullptr) const;

private:
    QRectF heldBy(const QRectF &box, TextBlock &block, double halfPixel,
                  RenderCaches &caches) const;
};

} // namespace quenara
