#pragma once

#include <QAccessible>

#include <functional>

class QWidget;

namespace quenara {

/// Has assistive technologies meet every button and picker of the program, those of Qt's own
/// dialogs included, as one whose action does what a click does, and every text and number as one
/// that is typed. To be called once, before the first window is made.
void makeControlsAccessible();

/// Tells assistive technologies that \a widget is of that \a role, whatever its class is. To be
/// called before the widget is given a name.
void setAccessibleRole(QWidget &widget, QAccessible::Role role);

/// Closes every list and menu that is open. An item of a menu that an assistive technology chooses
/// leaves its menu open, which a click on it does not.
void closePopups();

/// Whether a click would reach \a widget: it is shown and enabled, and no dialog stands before it.
/// Of a list or menu that is open elsewhere, which keeps a click from it, this closes all.
[[nodiscard]] bool isReachedByClick(const QWidget &widget);

/// Does what a click on \a widget does, which \a act carries out, once assistive technology has its
/// answer: a dialog that the click opens would keep it waiting. As a click, it ends the typing in
/// that window, does nothing if the widget is disabled or a dialog stands before it, and only
/// closes the list or menu that is open elsewhere.
void clickSoon(QWidget &widget, const std::function<void()> &act);

} // namespace quenara
