#pragma once

#include <QWidget>

#include <functional>

namespace quenara {

class OutputSwitches;
class PictureCache;
class WorkspaceStore;

/// The content of the operator window: the project bar, the rundown, the slide that is being worked
/// on, and the transport bar. A press beside the field that has the focus leaves it, so that the
/// next key is the show's.
class OperatorView : public QWidget
{
    Q_OBJECT

public:
    /// \a mayReplaceDocument is asked before a document takes the place of the one there is.
    OperatorView(WorkspaceStore &store, OutputSwitches &outputs, PictureCache &pictures,
                 const std::function<bool()> &mayReplaceDocument, QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace quenara
