#include "ThemeColors.h"

#include <QEvent>
#include <QWidget>

namespace quenara {

const ZelvoTheme &themeOf(const QWidget &widget)
{
    // What a style sheet makes transparent has a palette of no scheme.
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
