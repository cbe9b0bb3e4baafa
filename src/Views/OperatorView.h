#pragma once

#include <QWidget>

namespace quenara {

class CommandActions;
class ProjectBar;
struct RenderCaches;
class RundownView;
class WorkspaceStore;

/// The content of the operator window: the project bar, the rundown, the slide that is being worked
/// on, and the transport bar. A press beside the field that has the focus leaves it, so that the
/// next key is the show's.
class OperatorView : public QWidget
{
    Q_OBJECT

public:
    OperatorView(WorkspaceStore &store, const CommandActions &commands, RenderCaches &caches,
                 QWidget *parent = nullptr);

    /// Tells, beside the project's name, whether unsaved changes come back after a crash.
    void showWhetherKept(bool isKept);

    /// In points; the rundown is at the left.
    int rundownWidth() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    ProjectBar *m_projectBar;
    RundownView *m_rundown;
};

} // namespace quenara
