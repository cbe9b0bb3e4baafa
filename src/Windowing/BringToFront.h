#pragma once

class QWidget;

namespace quenara {

/// Puts a shown window before the others and gives it the keyboard, even from the task bar.
void bringToFront(QWidget &window);

} // namespace quenara
