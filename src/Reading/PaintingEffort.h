#pragma once

#include <QByteArray>

namespace quenara {

/// About how many nanoseconds painting \a drawing (SVG) takes at its own size, or at the largest
/// that fits into memory: what it has painted is counted, and no pixel painted. Counting ends when
/// it comes to more than \a most. 0 for what is no drawing, infinite if it is no number.
///
/// Counted are the pixels that are covered, the outlines that lead around them and the pieces of
/// dashed lines, as far as they are within the image.
[[nodiscard]] double paintingEffort(const QByteArray &drawing, double most);

} // namespace quenara
