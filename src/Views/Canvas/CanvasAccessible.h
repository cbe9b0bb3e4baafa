#pragma once

namespace quenara {

/// Has assistive technologies meet the layers on a SlideCanvas as its items, from the topmost down.
/// Calling it again changes nothing.
void makeCanvasAccessible();

} // namespace quenara
