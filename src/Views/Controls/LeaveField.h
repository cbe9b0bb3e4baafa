#pragma once

class QWidget;

namespace quenara {

/// Takes the keyboard from \a field and gives it to what lies around it, where keys are the show's.
/// Merely taken away, it would go to the window's first field when that becomes active again.
void leaveField(QWidget &field);

} // namespace quenara
