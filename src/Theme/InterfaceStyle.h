#pragma once

#include "ZelvoTheme.h"

#include <QPalette>
#include <QString>

namespace quenara {

/// The one palette of the interface, from the theme's roles alone.
QPalette interfacePalette(const ZelvoTheme &theme);

/// The one style sheet of the interface: the bundled template with each "@role" replaced by that
/// role's colour, "@onAccent" by what is read on the accent and "@accentMark" by accentMark().
QString interfaceStyleSheet(const ZelvoTheme &theme);

} // namespace quenara
