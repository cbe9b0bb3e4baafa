#pragma once

#include "ZelvoTheme.h"

class QEvent;
class QWidget;

namespace quenara {

/// The theme of the scheme that \a widget is in.
const ZelvoTheme &themeOf(const QWidget &widget);

/// Whether \a event, one of changeEvent(), may have brought another theme.
bool changesTheme(const QEvent &event);

} // namespace quenara
