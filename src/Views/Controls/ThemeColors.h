#pragma once

#include "ZelvoTheme.h"

class QEvent;
class QWidget;

namespace quenara {

/// The theme of the scheme that \a widget is in.
[[nodiscard]] const ZelvoTheme &themeOf(const QWidget &widget);

/// Whether \a event, which changeEvent() was called with, may have changed the theme.
[[nodiscard]] bool changesTheme(const QEvent &event);

} // namespace quenara
