#include "ThemeColors.h"

#include <QEvent>
#include <QWidget>

namespace quenara {

const ZelvoTheme &themeOf(const QWidget &widget)
{
    return ZelvoTheme::current(colorSchemeOf(widget.palette()));
}

bool changesTheme(const QEvent &event)
{
    return event.type() == QEvent::PaletteChange || event.type() == QEvent::StyleChange;
}

} // namespace quenara
