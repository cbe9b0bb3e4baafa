#include "ZelvoCommands.h"

#include "DocumentGuard.h"
#include "OpenRecentMenu.h"
#include "OutputSwitches.h"
#include "Typing.h"
#include "WindowCoordinator.h"
#include "WorkspaceStore.h"

#include <QApplication>
#include <QMenuBar>
#include <QPointer>

namespace quenara {

namespace {

using Commands = std::span<const CommandDescription>;

constexpr auto newItems = std::to_array<CommandDescription>({
    {Command::newProject, "New Project...", {"Ctrl+N"}},
    {Command::newBlankProject, "New Blank Project", {}},
    {Command::newSundayService, "New Sunday Service", {}},
});
constexpr auto saveItems = std::to_array<CommandDescription>({
    {Command::open, "Open...", {"Ctrl+O"}},
    {Command::save, "Save", {"Ctrl+S"}},
    {Command::saveAs, "Save As...", {"Ctrl+Shift+S"}},
});
constexpr auto quitItems = std::to_array<CommandDescription>({
    {Command::quit, "Quit", {"Ctrl+Q"}, QAction::QuitRole},
});
constexpr auto undoItems = std::to_array<CommandDescription>({
    {Command::undo, "Undo", {"Ctrl+Z"}},
    {Command::redo, "Redo", {"Ctrl+Shift+Z"}},
});
constexpr auto settingsItems = std::to_array<CommandDescription>({
    {Command::settings, "Settings...", {"Ctrl+,"}, QAction::PreferencesRole},
});
// The same command twice, so that either key sends the queued slide live.
constexpr auto goLiveItems = std::to_array<CommandDescription>({
    {Command::goLiveBySpace, "Go Live", {"Space"}},
    {Command::goLiveByReturn, "Go Live", {"Return", "Enter"}},
});
// Page Down and Page Up are what presentation remotes send.
constexpr auto stepItems = std::to_array<CommandDescription>({
    {Command::nextLive, "Next Live Slide", {"Right", "PgDown"}},
    {Command::previousLive, "Previous Live Slide", {"Left", "PgUp"}},
    {Command::queueNext, "Queue Next", {"Down"}},
    {Command::queuePrevious, "Queue Previous", {"Up"}},
});
constexpr auto modeItems = std::to_array<CommandDescription>({
    {Command::toggleBlackout, "Toggle Blackout", {"B"}},
    {Command::toggleLogo, "Toggle Logo", {"L"}},
});
constexpr auto windowItems = std::to_array<CommandDescription>({
    {Command::toggleDisplayWindow, "", {}},
    {Command::toggleStageWindow, "", {}},
});
constexpr auto aboutItems = std::to_array<CommandDescription>({
    {Command::about, "About Quenara", {}, QAction::AboutRole},
});

constexpr auto fileGroups = std::to_array<Commands>({newItems, saveItems, quitItems});
constexpr auto editGroups = std::to_array<Commands>({undoItems, settingsItems});
constexpr auto transportGroups = std::to_array<Commands>({goLiveItems, stepItems, modeItems});
constexpr auto outputGroups = std::to_array<Commands>({windowItems});
constexpr auto helpGroups = std::to_array<Commands>({aboutItems});

constexpr auto menus = std::to_array<MenuDescription>({
    {"&File", fileGroups},
    {"&Edit", editGroups},
    {"&Transport", transportGroups},
    {"&Output", outputGroups},
    {"&Help", helpGroups},
});

bool worksOnDocument(Command command)
{
    return command <= Command::redo;
}

/// Whether the operator goes on typing after it.
bool isAmidTyping(Command command)
{
    return command == Command::save || command == Command::undo || command == Command::redo;
}

} // namespace

std::span<const MenuDescription> menuDescriptions()
{
    return menus;
}

ZelvoCommands::ZelvoCommands(WorkspaceStore &store, WindowCoordinator &windows,
                             OutputSwitches &outputs, DocumentGuard &guard, QObject *parent)
    : QObject(parent), m_store(store), m_windows(windows), m_outputs(outputs), m_guard(guard)
{
    for (const MenuDescription &menu : menus) {
        for (const Commands &group : menu.groups) {
            for (const CommandDescription &description : group)
                m_actions.insert(description.command, makeAction(description));
        }
    }
    connect(&store, &WorkspaceStore::canUndoChanged, this, &ZelvoCommands::showHistory);
    connect(&store, &WorkspaceStore::canRedoChanged, this, &ZelvoCommands::showHistory);
    connect(&windows, &WindowCoordinator::isDisplayWindowOpenChanged, this,
            &ZelvoCommands::showWindows);
    connect(&windows, &WindowCoordinator::isStageWindowOpenChanged, this,
            &ZelvoCommands::showWindows);
    showHistory();
    showWindows();
}

QAction *ZelvoCommands::makeAction(const CommandDescription &description)
{
    auto *action = new QAction(QString::fromUtf8(description.title), this);
    QList<QKeySequence> shortcuts;
    for (const char *shortcut : description.shortcuts) {
        if (shortcut)
            shortcuts.append(QKeySequence(QString::fromUtf8(shortcut), QKeySequence::PortableText));
    }
    action->setShortcuts(shortcuts);
    // Not of the application: a dialog on one window must neither take its keys for commands nor
    // keep them from the other windows.
    action->setShortcutContext(Qt::WindowShortcut);
    action->setAutoRepeat(description.command == Command::undo
                          || description.command == Command::redo);
    action->setMenuRole(description.role);
    connect(action, &QAction::triggered, this,
            [this, command = description.command] { perform(command); });
    return action;
}

void ZelvoCommands::fill(QMenuBar &menuBar) const
{
    for (const MenuDescription &description : menus) {
        QMenu *menu = menuBar.addMenu(QString::fromUtf8(description.title));
        for (const Commands &group : description.groups) {
            if (!menu->isEmpty())
                menu->addSeparator();
            for (const CommandDescription &item : group) {
                menu->addAction(action(item.command));
                if (item.command == Command::open)
                    menu->addMenu(new OpenRecentMenu(m_store, m_guard, menu));
            }
        }
    }
}

void ZelvoCommands::perform(Command command)
{
    // Those come from an output window, which takes part in the service meanwhile, not in the
    // operator's dialog.
    if (worksOnDocument(command) && QApplication::activeModalWidget())
        return;
    const QPointer<QWidget> field = endTyping();
    carryOut(command);
    if (field && isAmidTyping(command))
        field->setFocus(Qt::OtherFocusReason);
}

void ZelvoCommands::carryOut(Command command)
{
    switch (command) {
    case Command::newProject:
        return m_store.showStartPanel();
    case Command::newBlankProject:
        return replaceDocument(&WorkspaceStore::newBlankProject);
    case Command::newSundayService:
        return replaceDocument(&WorkspaceStore::newSundayServiceProject);
    case Command::open:
        return replaceDocument(&WorkspaceStore::openProjectWithPanel);
    case Command::save:
        return m_store.saveProject();
    case Command::saveAs:
        return m_store.saveProjectAs();
    case Command::quit:
        emit quitRequested();
        return;
    case Command::undo:
        return m_store.undo();
    case Command::redo:
        return m_store.redo();
    case Command::goLiveBySpace:
    case Command::goLiveByReturn:
        return m_store.goLive();
    case Command::nextLive:
        return m_store.nextLive();
    case Command::previousLive:
        return m_store.previousLive();
    case Command::queueNext:
        return m_store.queueNext();
    case Command::queuePrevious:
        return m_store.queuePrevious();
    case Command::toggleBlackout:
        return m_store.toggleBlackout();
    case Command::toggleLogo:
        return m_store.toggleLogo();
    case Command::toggleDisplayWindow:
        return m_outputs.toggleDisplayWindow();
    case Command::toggleStageWindow:
        return m_outputs.toggleStageWindow();
    case Command::settings:
        emit settingsRequested();
        return;
    case Command::about:
        emit aboutRequested();
        return;
    }
}

void ZelvoCommands::replaceDocument(void (WorkspaceStore::*operation)())
{
    if (m_guard.mayReplaceDocument())
        (m_store.*operation)();
}

void ZelvoCommands::showHistory()
{
    action(Command::undo)->setEnabled(m_store.canUndo());
    action(Command::redo)->setEnabled(m_store.canRedo());
}

void ZelvoCommands::showWindows()
{
    for (OutputWindow *window : {m_windows.displayWindow(), m_windows.stageWindow()}) {
        if (window)
            addTo(*window);
    }
    action(Command::toggleDisplayWindow)
        ->setText(m_windows.isDisplayWindowOpen() ? QStringLiteral("Close Display Window")
                                                  : QStringLiteral("Open Display Window"));
    action(Command::toggleStageWindow)
        ->setText(m_windows.isStageWindowOpen() ? QStringLiteral("Close Monitor Window")
                                                : QStringLiteral("Open Monitor Window"));
}

} // namespace quenara
