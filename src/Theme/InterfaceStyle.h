#pragma once

#include "ZelvoTheme.h"

#include <QPalette>
#include <QString>

namespace quenara {

/// The one palette of the interface, made of the theme's roles alone.
[[nodiscard]] QPalette interfacePalette(const ZelvoTheme &theme);

/// The one style sheet of the interface: the bundled template with each "@role" replaced by that
/// role's colour, "@onAccent" by the colour of text on the accent, "@accentMark" by accentMark().
[[nodiscard]] QString interfaceStyleSheet(const ZelvoTheme &theme);

} // namespace quenara
