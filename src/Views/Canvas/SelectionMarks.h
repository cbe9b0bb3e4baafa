#pragma once

#include <QPainter>
#include <QRectF>

namespace quenara {

struct ZelvoTheme;

// What the canvas paints over a slide. Everything is in points of the canvas.

/// The outline of the selected layer, whose \a box may be of negative size, and its resize handle.
void paintSelectionMarks(QPainter &painter, const QRectF &box, const ZelvoTheme &theme);
/// All that paintSelectionMarks() paints on.
[[nodiscard]] QRect selectionMarksRect(const QRectF &box);

/// The line through the middle of \a slide, on whole points so that it is not blurred.
[[nodiscard]] QRectF verticalCenterGuide(const QRectF &slide);
[[nodiscard]] QRectF horizontalCenterGuide(const QRectF &slide);
[[nodiscard]] QColor centerGuideColor(const ZelvoTheme &theme);

} // namespace quenara
