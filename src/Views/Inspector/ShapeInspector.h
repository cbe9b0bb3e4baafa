#pragma once

class QWidget;

namespace quenara {

class SelectionBindings;

/// The rows of the selected layer's shape.
[[nodiscard]] QWidget *makeShapeInspector(SelectionBindings &selection);

} // namespace quenara
