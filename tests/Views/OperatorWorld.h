#pragma once

#include "CommandWorld.h"
#include "GuiTestSupport.h"
#include "OperatorView.h"
#include "RenderCaches.h"
#include "RundownList.h"
#include "RundownModel.h"
#include "Widgets.h"

namespace quenara::test {

/// An operator view on a world of its own, shown at its smallest.
struct OperatorWorld
{
    CommandWorld world;
    RenderCaches &caches = GuiTest::caches();
    OperatorView view{world.store, world.commands, caches};
    WorkspaceStore &store = world.store;
    RundownList *list = view.findChild<RundownList *>();
    const RundownModel *model = qobject_cast<const RundownModel *>(list->model());

    OperatorWorld() { showView(); }
    explicit OperatorWorld(const ZelvoProject &project) : world(project) { showView(); }

    void showView()
    {
        view.resize(1180, 760);
        showActive(view);
    }

    QPoint middleOf(const QModelIndex &index) const { return list->visualRect(index).center(); }

    void click(const QModelIndex &index) const
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, middleOf(index));
    }
};

} // namespace quenara::test
