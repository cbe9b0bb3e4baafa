#pragma once

#include "DrawingAllowance.h"

#include <QByteArray>

namespace quenara {

/// The drawing (SVG, compressed or not) without all that leads out of its own bytes: references
/// that neither name a part of it ("#...") nor hold an image ("data:") are gone, and so are the
/// document type, processing instructions and imported style sheets. Its entities are not expanded.
///
/// Empty if the bytes are no well-formed XML in an encoding of drawingText(), hold or take more
/// than \a allowance, from which that is taken, or are nested too deeply.
[[nodiscard]] QByteArray containedDrawing(const QByteArray &bytes, DrawingAllowance &allowance);

} // namespace quenara
