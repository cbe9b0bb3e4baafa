#pragma once

#include <QBrush>
#include <QPainter>
#include <QPainterPath>
#include <QRect>
#include <QRectF>

#include <functional>

namespace quenara {

/// What of its device \a painter can paint, in device pixels.
QRectF visibleDeviceRect(const QPainter &painter);

/// The device pixels that \a painter can paint of \a bounds, its coordinates, with \a margin of
/// them around. Empty where there are none, and for what is no number.
QRect visiblePixels(const QPainter &painter, const QRectF &bounds, int margin = 0);

/// Makes device pixels the coordinates of \a painter, which stays clipped as it is.
void useDevicePixels(QPainter &painter);

/// Clips \a painter to \a pixels of its device as well.
void clipToPixels(QPainter &painter, const QRect &pixels);

/// The factor from the painter's coordinates to device pixels.
double deviceScale(const QPainter &painter);

/// Has \a paint paint what there is to see of \a bounds (the painter's coordinates), one band after
/// another from top to bottom. The toolkit (Qt 6.4) has its threads fill what takes more than 95
/// runs of pixels and waits for them, which takes longer than filling anything of a window's size
/// by itself, and as long as it likes on a busy machine. \a runs is the most there are in a row.
void paintInBands(QPainter &painter, const QRectF &bounds, int runs,
                  const std::function<void()> &paint);

/// QPainter::fillPath() in bands, for a shape without holes or notches.
void fillInBands(QPainter &painter, const QPainterPath &path, const QBrush &brush);

} // namespace quenara
