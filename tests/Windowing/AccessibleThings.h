#pragma once

#include "TestFailure.h"

#include <QAccessible>
#include <QApplication>
#include <QMetaEnum>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace quenara::test {

inline bool isShown(QAccessibleInterface &thing)
{
    return thing.isValid() && !thing.state().invisible;
}

/// All that a reader finds in the program's windows, from the outside in.
inline void collect(QAccessibleInterface *thing, QList<QAccessibleInterface *> &found)
{
    if (!thing || !isShown(*thing))
        return;
    found.append(thing);
    for (int i = 0; i < thing->childCount(); ++i)
        collect(thing->child(i), found);
}

inline QList<QAccessibleInterface *> allThings()
{
    QWidgetList windows = QApplication::topLevelWidgets();
    windows.removeIf([](const QWidget *window) { return !window->isVisible(); });
    std::sort(windows.begin(), windows.end(), [](const QWidget *a, const QWidget *b) {
        return a->windowTitle() < b->windowTitle();
    });
    QList<QAccessibleInterface *> found;
    for (QWidget *window : windows)
        collect(QAccessible::queryAccessibleInterface(window), found);
    return found;
}

inline QString roleName(QAccessible::Role role)
{
    return QString::fromUtf8(QMetaEnum::fromType<QAccessible::Role>().valueToKey(role));
}

/// What a reader says of a thing, but for where it is and whether it has the keyboard.
inline QString wordsOf(QAccessibleInterface &thing)
{
    const QAccessible::State state = thing.state();
    QStringList words{roleName(thing.role()), thing.text(QAccessible::Name),
                      thing.text(QAccessible::Description), thing.text(QAccessible::Value)};
    if (state.checked)
        words.append(QStringLiteral("checked"));
    if (state.selected)
        words.append(QStringLiteral("selected"));
    if (state.disabled)
        words.append(QStringLiteral("disabled"));
    return words.join(QStringLiteral(" | "));
}

inline QString clickActionOf(QAccessibleInterface &thing)
{
    QAccessibleActionInterface *actions = thing.actionInterface();
    const QStringList names = actions ? actions->actionNames() : QStringList();
    const QString first = names.value(0);
    const bool isClick = first == QAccessibleActionInterface::pressAction()
        || first == QAccessibleActionInterface::toggleAction()
        || first == QAccessibleActionInterface::showMenuAction();
    return isClick ? first : QString();
}

inline bool isOfMenu(const QAccessibleInterface &thing)
{
    return thing.role() == QAccessible::MenuItem || thing.role() == QAccessible::PopupMenu;
}

/// The window that shows a thing.
inline QWidget &windowOf(QAccessibleInterface &thing)
{
    QAccessibleInterface *around = thing.parent();
    const auto *widget = qobject_cast<const QWidget *>(thing.object());
    while (!widget && around) {
        widget = qobject_cast<const QWidget *>(around->object());
        around = around->parent();
    }
    return *widget->window();
}

/// Clicks as the desktop does: into the window in front at that place of the screen.
inline void click(QAccessibleInterface &thing)
{
    const QPoint middle = thing.rect().center();
    QWidget &window = windowOf(thing);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      window.mapFromGlobal(middle));
}

/// Whether a click in its middle meets the thing.
inline bool isInSight(QAccessibleInterface &thing)
{
    const auto *widget = qobject_cast<const QWidget *>(thing.object());
    if (thing.state().offscreen || widget)
        return widget && widget->visibleRegion().contains(widget->rect().center());
    const QPoint middle = thing.rect().center();
    return thing.parent()->childAt(middle.x(), middle.y()) == &thing;
}

} // namespace quenara::test
