#pragma once

#include "GuiTestSupport.h"

namespace quenara::test {

/// The canvas of new designs, a pixel a unit.
inline constexpr QSize canvas(1920, 1080);

/// White lyrics without shadow or padding.
TextElementProperties plainText(const QString &text);

/// One text layer on black.
Slide textSlide(const TextElementProperties &text, const CanvasFrame &frame);

/// What that shows on the canvas.
QImage textImage(const TextElementProperties &text, const CanvasFrame &frame);

} // namespace quenara::test
