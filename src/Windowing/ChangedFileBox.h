#pragma once

#include "DialogInFront.h"
#include "WorkspaceStore.h"

namespace quenara {

/// Asks what becomes of a save whose file, named \a fileName, another program has changed. Returns
/// once the operator has answered.
[[nodiscard]] WorkspaceStore::ChangedFileAnswer askAboutChangedFile(const DialogOwner &owner,
                                                                    const QString &fileName);

} // namespace quenara
