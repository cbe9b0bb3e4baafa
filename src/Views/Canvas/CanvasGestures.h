#pragma once

#include "SlideDesignModels.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <optional>

namespace quenara {

// What the pointer does on the design canvas. Everything is in canvas units but where points of the
// screen are named; a scale is points for one canvas unit.

/// Where a slide of \a canvas lies in an area of \a size points: as large as the margin around it
/// leaves room for, centred. Empty when there is none, or for a canvas without a size.
QRectF fittedCanvasRect(const QSizeF &size, const CanvasSize &canvas);

/// The topmost layer whose frame holds \a point, hidden and locked ones included; frames are not
/// rotated. Null when there is none.
const SlideElement *layerAt(const SlideDesign &design, const QPointF &point);

/// A frame on the slide's centre lines, as far as it came near them.
struct CenterSnap
{
    CanvasFrame frame;
    bool showVerticalCenterGuide = false; ///< it is centred horizontally
    bool showHorizontalCenterGuide = false; ///< it is centred vertically

    bool operator==(const CenterSnap &) const = default;
};
CenterSnap applyCenterSnap(const CanvasFrame &frame, const CanvasSize &canvas);

/// \a start with its bottom-right corner moved by \a translation: at least of the smallest size,
/// then within the right and bottom edge of \a canvas, even if that makes it smaller than nothing.
CanvasFrame resizedWithin(const CanvasFrame &start, const QPointF &translation,
                          const CanvasSize &canvas);

/// The resize handle on the bottom-right corner of \a box, in points as that is.
QRectF resizeHandle(const QRectF &box);

} // namespace quenara
