#pragma once

#include "FilePanels.h"

namespace quenara {

/// Runs file panels as the platform's own file dialogs.
class FileDialogRunner : public FilePanelRunner
{
public:
    std::optional<QUrl> run(const FilePanel &panel) override;
};

} // namespace quenara
