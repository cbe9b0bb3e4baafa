#include "ContextMenu.h"

#include "AccessibleControls.h"
#include "Typing.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>

namespace quenara {

namespace {

constexpr auto menuProperty = "offersContextMenu";

} // namespace

QMenu *makeContextMenu(QWidget *parent)
{
    auto *menu = new QMenu(parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    return menu;
}

QAction *addMenuItem(QMenu &menu, const QString &title, const std::function<void()> &act)
{
    return menu.addAction(title, &menu, [act] {
        closePopups();
        if (QApplication::activeModalWidget())
            return;
        endTyping();
        act();
    });
}

void offerContextMenu(QWidget &widget)
{
    widget.setProperty(menuProperty, true);
}

bool offersContextMenu(const QWidget &widget)
{
    return widget.property(menuProperty).toBool();
}

void openContextMenu(QWidget &widget)
{
    const QPoint place = widget.inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, place, widget.mapToGlobal(place));
    QApplication::sendEvent(&widget, &event);
}

} // namespace quenara
