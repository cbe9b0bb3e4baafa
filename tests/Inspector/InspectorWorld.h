#pragma once

#include "GuiTestSupport.h"
#include "InspectorView.h"
#include "RenderCaches.h"
#include "TestSupport.h"

#include <QColorDialog>

namespace quenara::test {

/// An inspector on a world of its own, shown as high as all of its rows.
struct InspectorWorld : World
{
    RenderCaches &caches = GuiTest::caches();
    InspectorView view{store, caches};

    explicit InspectorWorld(const ZelvoProject &project, const Caller &caller = Caller::current())
        : World(project)
    {
        view.resize(view.width(), 1100);
        showActive(view, caller);
        view.setFocus();
    }

    /// The control of that accessible name.
    template<class Control = QWidget>
    Control &control(const QString &name, const Caller &caller = Caller::current()) const
    {
        return named<Control>(view, name, caller);
    }

    /// The dialog that stands on a colour well, if one does.
    static QColorDialog *dialogOn(const QWidget &well)
    {
        for (QColorDialog *dialog : well.findChildren<QColorDialog *>()) {
            if (dialog->isVisible())
                return dialog;
        }
        return nullptr;
    }

    void press(const QString &name, const Caller &caller = Caller::current()) const
    {
        test::press(view, name, 0, caller);
    }
};

} // namespace quenara::test
