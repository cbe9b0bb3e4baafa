#pragma once

class QWidget;

namespace quenara {

// What makes up for faults of Qt in widgets. ARCHITECTURE.md lists each with the test that shows
// when it can go.

/// Does all layouts that are asked for, nested ones included. Left to Qt, each tells the one around
/// it by an event of its own, and what a change moves is first painted at places in between.
void layOutNow();

/// Whether \a widget is typed into. Item views ask for an input method, too, on behalf of their
/// editors, which have the focus themselves.
[[nodiscard]] bool wantsInputMethod(const QWidget &widget);

} // namespace quenara
