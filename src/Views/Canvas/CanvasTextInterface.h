#pragma once

namespace quenara {

/// Lets screen readers read the text that is edited on a canvas, and move its caret and selection.
/// Calling it again changes nothing.
void makeCanvasTextReadable();

} // namespace quenara
