#pragma once

#include <QPainter>
#include <QRect>
#include <QRectF>
#include <QSize>

namespace quenara {

/// What lies outside is farther from the origin than any screen reaches, in points or pixels.
inline constexpr QRectF reachableArea{-20'000, -20'000, 40'000, 40'000};

/// \a size in whole pixels: 0 for a side that is negative or not a number, and the largest whole
/// number for one beyond it.
[[nodiscard]] QSize wholePixels(const QSizeF &size);

/// The smallest rectangle of whole numbers around what of \a rect lies in the reachable area. Empty
/// if there is none or if a coordinate is not a number.
[[nodiscard]] QRect reachableRect(const QRectF &rect);

/// The part of its device that \a painter can paint, in device pixels.
[[nodiscard]] QRectF visibleDeviceRect(const QPainter &painter);

/// The device pixels that \a painter can paint of \a bounds (the painter's coordinates) and of
/// \a margin device pixels around it. Empty if there are none or if a coordinate is not a number.
[[nodiscard]] QRect visiblePixels(const QPainter &painter, const QRectF &bounds, int margin = 0);

/// The whole device pixels that \a rect (the painter's coordinates) touches, by more than 1/1024 of
/// one; what it is in device pixels if it is larger than any screen or not a number.
[[nodiscard]] QRectF touchedPixels(const QPainter &painter, const QRectF &rect);

/// Makes device pixels the coordinates of \a painter and keeps its clip.
void useDevicePixels(QPainter &painter);

/// Adds \a pixels of the device to what \a painter is clipped to.
void clipToPixels(QPainter &painter, const QRect &pixels);

/// Whether what is painted becomes the shapes, letters and images of a page of a document rather
/// than pixels.
[[nodiscard]] bool isOnPage(const QPainter &painter);

/// How many device pixels one unit of the painter's coordinates is long. The geometric mean of both
/// directions if the painter scales them differently.
[[nodiscard]] double deviceScale(const QPainter &painter);

} // namespace quenara
