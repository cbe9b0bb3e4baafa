#pragma once

namespace quenara {

/// The line around what is painted by hand and has the focus, in points.
constexpr double focusLineWidth = 1.5;

} // namespace quenara
