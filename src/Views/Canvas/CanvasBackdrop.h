#pragma once

#include "ZelvoTheme.h"

#include <QImage>
#include <QRectF>

namespace quenara {

/// The area behind a slide on the canvas, \a size points large, with the shadow of the slide at
/// \a slide (points).
[[nodiscard]] QImage canvasBackdrop(const QSize &size, double devicePixelRatio, const QRectF &slide,
                                    ColorScheme scheme);

} // namespace quenara
