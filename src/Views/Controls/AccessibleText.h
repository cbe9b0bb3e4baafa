#pragma once

class QAccessibleInterface;
class QWidget;

namespace quenara {

/// What assistive technologies meet of a text or a number that is typed: null for any other widget.
/// What they write is taken as if it had been typed there, and only where a click could reach.
[[nodiscard]] QAccessibleInterface *makeTextInterface(QWidget &widget);

} // namespace quenara
