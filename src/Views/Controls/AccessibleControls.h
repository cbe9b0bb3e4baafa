#pragma once

#include <QAccessible>

#include <functional>

class QWidget;

namespace quenara {

/// Has assistive technologies meet every button and picker of the program, those of Qt's own
/// dialogs included, as one whose action does what a click does. To be called once, before the
/// first window is made.
void makeControlsAccessible();

/// Tells assistive technologies that \a widget is of that \a role, whatever its class is. To be
/// called before the widget is given a name.
void setAccessibleRole(QWidget &widget, QAccessible::Role role);

/// Does what a click on \a widget does, which \a act carries out, once assistive technology has its
/// answer: a dialog that the click opens would keep it waiting. As a click, it ends the typing in
/// that window, and nothing happens if the widget is disabled or a dialog stands before it.
void clickSoon(QWidget &widget, const std::function<void()> &act);

} // namespace quenara
