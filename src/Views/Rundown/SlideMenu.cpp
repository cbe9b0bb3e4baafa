#include "SlideMenu.h"

#include "CommandActions.h"
#include "ContextMenu.h"
#include "WorkspaceStore.h"

#include <QMenu>

namespace quenara {

QMenu *makeSlideMenu(WorkspaceStore &store, const CommandActions &commands, const QString &slideID,
                     QWidget *parent)
{
    QMenu *menu = makeContextMenu(parent);
    const auto add = [&](Command command, const auto &select) {
        menu->addAction(commands.action(command)->text(), &commands, [&commands, select, command] {
            commands.selectAndPerform(select, command);
        });
    };
    const auto queue = [&store, slideID] { store.queueSlide(slideID); };
    const auto select = [&store, slideID] { store.selectSlide(slideID, true); };
    add(Command::goLive, queue);
    add(Command::duplicateSlide, select);
    add(Command::deleteSlide, select);
    return menu;
}

} // namespace quenara
