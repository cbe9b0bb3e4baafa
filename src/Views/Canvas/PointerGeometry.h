#pragma once

#include "SlideDesignModels.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <optional>

namespace quenara {

// What the pointer does on the design canvas. Everything is in canvas units except where points are
// named.

/// Where a slide of \a canvas lies in an area of \a size points: as large as the margin around it
/// leaves room for, centred. Empty when there is none, or for a canvas without a size.
[[nodiscard]] QRectF fittedCanvasRect(const QSizeF &size, const CanvasSize &canvas);

/// The topmost layer whose frame holds \a point, hidden and locked ones included; frames are not
/// rotated here. Null when there is none.
[[nodiscard]] const SlideElement *layerAt(const SlideDesign &design, const QPointF &point);

/// A frame that was moved onto those of the slide's centre lines that it came near to.
struct CenterSnap
{
    CanvasFrame frame;
    bool showVerticalCenterGuide = false; ///< it is centred horizontally
    bool showHorizontalCenterGuide = false; ///< it is centred vertically

    bool operator==(const CenterSnap &) const = default;
};
[[nodiscard]] CenterSnap applyCenterSnap(const CanvasFrame &frame, const CanvasSize &canvas);

/// \a start with its bottom-right corner moved by \a translation: at least of the smallest size,
/// then within the right and bottom edge of \a canvas, even if that makes its size negative.
[[nodiscard]] CanvasFrame resizedWithin(const CanvasFrame &start, const QPointF &translation,
                                        const CanvasSize &canvas);

/// The resize handle on the bottom-right corner of \a box, both in points.
[[nodiscard]] QRectF resizeHandle(const QRectF &box);

} // namespace quenara
