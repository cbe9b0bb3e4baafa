#include "OpenRecentMenu.h"

#include "CommandActions.h"
#include "ElidedText.h"
#include "PlainToolTip.h"
#include "ShownPath.h"
#include "WorkspaceStore.h"

namespace quenara {

namespace {

constexpr int widestName = 240;
constexpr int widestPath = 320;

} // namespace

OpenRecentMenu::OpenRecentMenu(WorkspaceStore &store, CommandActions &commands, QWidget *parent)
    : QMenu(QStringLiteral("Open Recent"), parent), m_store(store), m_commands(commands)
{
    setToolTipsVisible(true);
    // Queued, because the menu may still be handling the choice that has changed the list.
    connect(&store, &WorkspaceStore::recentProjectsChanged, this, &OpenRecentMenu::showProjects,
            Qt::QueuedConnection);
    showProjects();
}

void OpenRecentMenu::showProjects()
{
    clear();
    for (const RecentProject &project : m_store.recentProjects()) {
        const QFontMetricsF metrics(font());
        QString text =
            QStringLiteral("%1 \u2014 %2")
                .arg(elidedText(project.name, metrics, Qt::ElideRight, widestName),
                     elidedText(shownPath(project.path), metrics, Qt::ElideMiddle, widestPath));
        // A single ampersand would mark the next letter as the item's key.
        QAction *action = addAction(text.replace(QLatin1Char('&'), QStringLiteral("&&")));
        action->setToolTip(plainToolTip(project.path));
        connect(action, &QAction::triggered, this,
                [this, url = project.url()] { m_commands.openProject(url); });
    }
    menuAction()->setEnabled(!isEmpty());
}

} // namespace quenara
