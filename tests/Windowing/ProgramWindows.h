#pragma once

#include "ContextMenuKey.h"
#include "ExportWindow.h"
#include "FocusRing.h"
#include "SettingsWindow.h"
#include "ShortcutGuard.h"
#include "Widgets.h"
#include "WindowingWorld.h"

namespace quenara::test {

/// The program's windows on a demo service, its operator window active.
struct ProgramWindows : WindowingWorld
{
    ShortcutGuard shortcutGuard;
    ContextMenuKey contextMenuKey;
    FocusRing focusRing;
    OperatorWindow operatorWindow{store, windows, guard, commands, menus, caches};
    SettingsWindow settings{appearance, menus, &operatorWindow};
    ExportWindow exports{store, panels, menus, &operatorWindow};

    ProgramWindows()
    {
        qApp->installEventFilter(&shortcutGuard);
        qApp->installEventFilter(&contextMenuKey);
        qApp->installEventFilter(&focusRing);
        showActive(operatorWindow);
    }

    static void activate(QWidget &window, const Caller &caller = Caller::current())
    {
        showActive(window, caller);
    }

    /// As the desktop sends it: to the window.
    static void press(QWidget &window, Qt::Key key,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        waitForTheNextMoment();
        QTest::keyClick(window.windowHandle(), key, modifiers);
    }

    qsizetype place(const std::optional<QString> &id) const
    {
        const QList<FlattenedSlide> show = store.flattenedSlides();
        for (const FlattenedSlide &slide : show) {
            if (slide.id() == id)
                return slide.absoluteIndex;
        }
        return -1;
    }
    qsizetype live() const { return place(store.liveSlideID()); }
    qsizetype queued() const { return place(store.queuedSlideID()); }
};

} // namespace quenara::test
