#pragma once

#include <QDialog>

namespace quenara {

class ExportView;
class FilePanelRunner;
class WorkspaceStore;
class ZelvoCommands;

/// The export window. It stands on the operator's window, which stays usable while the show is
/// exported. Closing it cancels the export. The menus' keys work in it, except for the bare keys of
/// the show.
class ExportWindow : public QDialog
{
    Q_OBJECT

public:
    ExportWindow(const WorkspaceStore &store, FilePanelRunner &panels, const ZelvoCommands &menus,
                 QWidget *operatorWindow);

    /// Opens the window, or raises it if it is open.
    void present();

private:
    ExportView *m_content;
};

} // namespace quenara
