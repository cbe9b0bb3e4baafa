#pragma once

#include "DialogParent.h"
#include "FilePanels.h"

#include <QDir>

namespace quenara {

/// Runs file panels as the platform's own file dialogs, one at a time; a second request while one
/// is open counts as cancelled. Starts in the documents folder, then where the last file was.
class FileDialogRunner : public FilePanelRunner
{
public:
    explicit FileDialogRunner(DialogParent parent);

    /// A save panel answers with the final name and only after the operator agreed to replace the
    /// file that has it.
    std::optional<QUrl> run(const FilePanel &panel) override;

    /// The next panel starts in the folder of \a file, on this machine, if it is there.
    void startBeside(const QUrl &file);

private:
    std::optional<QString> chosenPath(const FilePanel &panel);
    bool mayReplace(const QString &path);

    DialogParent m_parent;
    QDir m_folder;
    bool m_isRunning = false;
};

/// \a name, which has a suffix, as the name of a file that is not hidden in a folder: without
/// separators, quotes and control characters, and no longer than file systems take.
QString fileNameFrom(const QString &name);

/// \a path as \a panel saves it: with the panel's suffix unless it ends so already.
QString savedPath(const FilePanel &panel, const QString &path);

} // namespace quenara
