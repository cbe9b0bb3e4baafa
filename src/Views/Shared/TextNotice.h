#pragma once

#include <QString>

namespace quenara {

struct RenderCaches;
struct SlideDesign;

/// What the operator is told of texts of \a design that are not shown as they are: of visible
/// layers whose text ends in an ellipsis, since it does not fit into its box even at its smallest
/// size, and of those with letters that no face of the machine has. Names the layers, in the
/// design's order. Empty if all is well.
[[nodiscard]] QString textNotice(const SlideDesign &design, RenderCaches &caches);

/// The symbol that stands for the notice, a name in `resources/icons.list`.
inline constexpr const char *textNoticeSymbol = "exclamationmark.triangle.fill";

} // namespace quenara
