#pragma once

class QWidget;

namespace quenara {

class SelectionBindings;

/// The rows of the selected slide's background.
[[nodiscard]] QWidget *makeBackgroundInspector(SelectionBindings &selection);

/// Has the background of the selected slide become an image that is dropped on \a section.
void takeBackgroundImages(QWidget &section, SelectionBindings &selection);

} // namespace quenara
