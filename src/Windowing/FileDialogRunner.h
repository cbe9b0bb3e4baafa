#pragma once

#include "DialogInFront.h"
#include "FilePanels.h"

#include <QDir>

namespace quenara {

/// Runs file panels as the platform's own file dialogs, one at a time; a second request while one
/// is open counts as cancelled. Panels for images start in the pictures folder and all others in
/// the documents folder, then each where the last file of its kind was.
class FileDialogRunner : public FilePanelRunner
{
public:
    explicit FileDialogRunner(DialogOwner owner);

    /// A save panel answers with the final name and only after the operator agreed to replace the
    /// file that has it.
    std::optional<QUrl> run(const FilePanel &panel) override;

    /// The next panel for projects starts in the folder of \a project, if that is a file of this
    /// machine and the folder is there.
    void startBeside(const QUrl &project);

private:
    std::optional<QString> chosenPath(const FilePanel &panel);
    bool mayReplace(const QString &path);

    QDir &folderOf(const FilePanel &panel);

    DialogOwner m_owner;
    QDir m_projects;
    QDir m_images;
    QDir m_exports;
    bool m_isRunning = false;
};

/// \a path as \a panel saves it: with the panel's suffix unless it ends so already.
[[nodiscard]] QString savedPath(const FilePanel &panel, const QString &path);

} // namespace quenara
