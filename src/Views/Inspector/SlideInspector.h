#pragma once

class QWidget;

namespace quenara {

class SelectionBindings;

/// The rows of the selected slide's own properties.
[[nodiscard]] QWidget *makeSlideInspector(SelectionBindings &selection);

} // namespace quenara
