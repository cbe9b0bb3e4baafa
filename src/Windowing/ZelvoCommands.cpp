#include "ZelvoCommands.h"

#include "CommandActions.h"
#include "OpenRecentMenu.h"
#include "WindowCoordinator.h"

#include <QDialog>
#include <QMainWindow>
#include <QMenuBar>

#include <array>
#include <span>

namespace quenara {

namespace {

/// Commands between two separators.
using Group = std::span<const Command>;

struct MenuDescription
{
    const char *title;
    std::span<const Group> groups;
};

constexpr auto newItems =
    std::to_array({Command::newProject, Command::newBlankProject, Command::newSundayService});
constexpr auto fileItems = std::to_array({Command::open, Command::save, Command::saveAs});
constexpr auto exportItems = std::to_array({Command::exportShow});
constexpr auto quitItems = std::to_array({Command::quit});
constexpr auto historyItems = std::to_array({Command::undo, Command::redo});
constexpr auto selectionItems = std::to_array(
    {Command::cut, Command::copy, Command::paste, Command::duplicate, Command::deleteSelected});
constexpr auto moveItems = std::to_array({Command::stepSlideUp, Command::stepSlideDown,
                                          Command::stepSectionUp, Command::stepSectionDown});
constexpr auto settingsItems = std::to_array({Command::settings});
constexpr auto goLiveItems = std::to_array({Command::goLive, Command::goLiveByReturn});
constexpr auto stepItems = std::to_array(
    {Command::nextLive, Command::previousLive, Command::queueNext, Command::queuePrevious});
constexpr auto goToItems = std::to_array({Command::goToSlide});
constexpr auto modeItems = std::to_array({Command::toggleBlackout, Command::toggleLogo});
constexpr auto windowItems =
    std::to_array({Command::toggleDisplayWindow, Command::toggleStageWindow});
constexpr auto fullScreenItems = std::to_array({Command::toggleStageFullScreen});
constexpr auto aboutItems = std::to_array({Command::about});

constexpr auto fileGroups = std::to_array<Group>({newItems, fileItems, exportItems, quitItems});
constexpr auto editGroups =
    std::to_array<Group>({historyItems, selectionItems, moveItems, settingsItems});
constexpr auto transportGroups =
    std::to_array<Group>({goLiveItems, stepItems, goToItems, modeItems});
constexpr auto outputGroups = std::to_array<Group>({windowItems, fullScreenItems});
constexpr auto helpGroups = std::to_array<Group>({aboutItems});

constexpr auto menus = std::to_array<MenuDescription>({
    {"&File", fileGroups},
    {"&Edit", editGroups},
    {"&Transport", transportGroups},
    {"&Output", outputGroups},
    {"&Help", helpGroups},
});

} // namespace

ZelvoCommands::ZelvoCommands(WorkspaceStore &store, CommandActions &commands,
                             WindowCoordinator &windows, QObject *parent)
    : QObject(parent), m_store(store), m_commands(commands)
{
    connect(&windows, &WindowCoordinator::windowMade, this,
            [this](OutputWindow *window) { addTo(*window); });
}

void ZelvoCommands::fill(QMenuBar &menuBar) const
{
    for (const MenuDescription &description : menus) {
        QMenu *menu = menuBar.addMenu(QString::fromUtf8(description.title));
        for (const Group &group : description.groups) {
            if (!menu->isEmpty())
                menu->addSeparator();
            for (const Command command : group) {
                menu->addAction(m_commands.action(command));
                // The title alone does not say how a display over the only screen is left.
                if (command == Command::toggleDisplayWindow)
                    menu->setToolTipsVisible(true);
                if (command == Command::open)
                    menu->addMenu(new OpenRecentMenu(m_store, m_commands, menu));
            }
        }
    }
}

void ZelvoCommands::addTo(QWidget &window) const
{
    const bool isDialog = qobject_cast<const QDialog *>(&window);
    const bool showsSelection = qobject_cast<const QMainWindow *>(&window);
    for (const CommandDescription &description : commandDescriptions()) {
        const bool isUsable =
            description.worksOnSelection ? showsSelection : !isDialog || !hasBareKey(description);
        if (isUsable)
            window.addAction(m_commands.action(description.command));
    }
}

} // namespace quenara
