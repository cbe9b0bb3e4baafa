#pragma once

#include "SymbolButton.h"

class QAction;

namespace quenara {

/// A button that triggers an action and is enabled while that is. Its title is the action's icon
/// text, its tooltip the action's, its symbol the one that the action's data names.
class CommandButton : public SymbolButton
{
    Q_OBJECT

public:
    /// \a action must outlive the button.
    CommandButton(QAction &action, Look look, QWidget *parent = nullptr);
};

/// The name of the symbol that \a action has, in `resources/icons.list`; may be empty.
[[nodiscard]] QString symbolOf(const QAction &action);

} // namespace quenara
