#include "ThemeColors.h"

#include <QEvent>
#include <QWidget>

namespace quenara {

const ZelvoTheme &themeOf(const QWidget &widget)
{
    // The palette of a widget that the style sheet makes transparent belongs to neither scheme.
    const QWidget *filled = &widget;
    while (filled->palette().color(QPalette::Window).alpha() == 0 && filled->parentWidget())
        filled = filled->parentWidget();
    return ZelvoTheme::current(colorSchemeOf(filled->palette()));
}

bool changesTheme(const QEvent &event)
{
    return event.type() == QEvent::PaletteChange || event.type() == QEvent::StyleChange;
}

} // namespace quenara
