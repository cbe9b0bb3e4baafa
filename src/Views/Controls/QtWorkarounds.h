#pragma once

class QWidget;

namespace quenara {

// What makes up for faults of Qt in widgets. ARCHITECTURE.md lists each with the test that shows
// when it can go.

/// Does all layouts that are asked for, nested ones included. Left to Qt, each tells the one around
/// it by an event of its own, and what a change moves is first painted at places in between.
void layOutNow();

/// Has Qt take \a window for the one with the keyboard where the desktop has said so and Qt has not
/// noticed. What does that is deprecated since 6.5, and nothing has taken its place.
void makeActive(QWidget &window);

/// Whether \a widget is typed into. Item views ask for an input method, too, on behalf of their
/// editors, which have the focus themselves.
[[nodiscard]] bool wantsInputMethod(const QWidget &widget);

} // namespace quenara
