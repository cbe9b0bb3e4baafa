#pragma once

class QWidget;

namespace quenara {

class SelectionBindings;

/// The rows of the selected slide's background.
[[nodiscard]] QWidget *makeBackgroundInspector(SelectionBindings &selection);

} // namespace quenara
