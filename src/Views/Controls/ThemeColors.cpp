#include "ThemeColors.h"

#include <QEvent>
#include <QWidget>

namespace quenara {

const ZelvoTheme &themeOf(const QWidget &widget)
{
    // What a style sheet makes transparent has a palette of no scheme.
    return ZelvoTheme::current(colorSchemeOf(widget.window()->palette()));
}

bool changesTheme(const QEvent &event)
{
    return event.type() == QEvent::PaletteChange || event.type() == QEvent::StyleChange;
}

} // namespace quenara
