#pragma once

class QWidget;

namespace quenara {

class SelectionBindings;

/// The rows of the selected layer's text.
[[nodiscard]] QWidget *makeTextInspector(SelectionBindings &selection);

} // namespace quenara
