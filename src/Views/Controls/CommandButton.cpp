#include "CommandButton.h"

#include <QAction>

namespace quenara {

CommandButton::CommandButton(QAction &action, Look look, QWidget *parent)
    : SymbolButton(symbolOf(action), action.iconText(), look, parent)
{
    setToolTip(action.toolTip());
    connect(this, &CommandButton::clicked, &action, &QAction::trigger);
    connect(&action, &QAction::enabledChanged, this, &CommandButton::setEnabled);
    setEnabled(action.isEnabled());
}

QString symbolOf(const QAction &action)
{
    return action.data().toString();
}

} // namespace quenara
