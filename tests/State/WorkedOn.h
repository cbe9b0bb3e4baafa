#pragma once

#include "TestSupport.h"

namespace quenara::test {

/// Leaves nothing in \a store as it was at first: the document is edited, something was undone, the
/// output is not at rest, the start panel is open.
inline void workOn(WorkspaceStore &store)
{
    store.updateProjectName(QStringLiteral("Worked on"));
    store.duplicateSelectedSlide();
    store.addServiceItem(ServiceItemType::message);
    store.undo();
    store.goLive();
    store.toggleBlackout();
    store.setStartPanelPresented(true);
}

} // namespace quenara::test
