#pragma once

namespace quenara {

/// Lets screen readers read the text that is edited on a canvas, its caret and its selection.
/// Calling it again changes nothing.
void makeCanvasTextReadable();

} // namespace quenara
