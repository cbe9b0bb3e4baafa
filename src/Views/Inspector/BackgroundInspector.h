#pragma once

class QWidget;

namespace quenara {

class SelectionBindings;

/// The rows of the selected slide's background.
QWidget *makeBackgroundInspector(SelectionBindings &selection);

} // namespace quenara
