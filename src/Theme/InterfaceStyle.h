#pragma once

#include "ZelvoTheme.h"

#include <QPalette>
#include <QString>

namespace quenara {

/// Gives the application the style that the style sheet was drawn for, the bundled faces, and the
/// interface's font: one look on every desktop. Needs a QApplication.
void setUpInterface();

/// Gives the whole application the palette and the style sheet of \a theme.
void applyTheme(const ZelvoTheme &theme);

/// The one palette of the interface, made of the theme's roles alone.
[[nodiscard]] QPalette interfacePalette(const ZelvoTheme &theme);

/// The one style sheet of the interface: the bundled template with each "@role" replaced by that
/// role's colour, "@onAccent" by the colour of text on the accent, "@accentMark" by accentMark().
[[nodiscard]] QString interfaceStyleSheet(const ZelvoTheme &theme);

} // namespace quenara
