#pragma once

#include <QString>

#include <functional>

class QAction;
class QMenu;
class QWidget;

namespace quenara {

/// A menu that deletes itself once it is closed.
[[nodiscard]] QMenu *makeContextMenu(QWidget *parent);

/// Adds an item that does \a act to the end of \a menu, a context menu or one within it. It ends
/// the typing first, and does nothing once a dialog stands before the menu's window: an assistive
/// technology chooses it all the same.
QAction *addMenuItem(QMenu &menu, const QString &title, const std::function<void()> &act);

/// Has assistive technologies offer the context menu of \a widget, a button.
void offerContextMenu(QWidget &widget);
[[nodiscard]] bool offersContextMenu(const QWidget &widget);

/// Asks \a widget for its context menu as the Menu key does.
void openContextMenu(QWidget &widget);

} // namespace quenara
