#pragma once

#include "GuiTestSupport.h"
#include "InspectorView.h"
#include "SymbolButton.h"
#include "TestSupport.h"

#include <QColorDialog>

namespace quenara::test {

/// An inspector on a world of its own, shown as high as all of its rows.
struct InspectorWorld
{
    World world;
    WorkspaceStore &store = world.store;
    InspectorView view{store};

    explicit InspectorWorld(const ZelvoProject &project) : world(project)
    {
        view.resize(view.width(), 1100);
        view.show();
        view.activateWindow();
        if (!QTest::qWaitForWindowActive(&view))
            qFatal("the view does not become active");
        view.setFocus();
    }

    /// The control of that accessible name.
    template<class Control = QWidget>
    Control &control(const QString &name) const
    {
        for (Control *candidate : view.findChildren<Control *>()) {
            if (candidate->accessibleName() == name)
                return *candidate;
        }
        qFatal("there is no control \"%s\"", qPrintable(name));
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

    void press(const QString &name) const
    {
        QTest::mouseClick(&control<SymbolButton>(name), Qt::LeftButton);
    }

    Slide slide() const { return *store.slideWithID(store.selectedSlideID()); }
    qsizetype undoSteps() const { return store.undoStore().undoStack().size(); }
};

} // namespace quenara::test
