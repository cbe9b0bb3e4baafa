#include "Command.h"

#include "CommandActions.h"
#include "Copying.h"
#include "OutputWindows.h"
#include "RawEnum.h"
#include "RundownEdits.h"
#include "Show.h"
#include "WorkspaceStore.h"

#include <algorithm>
#include <functional>
#include <string_view>

namespace quenara {

namespace {

/// Calls an operation of the store, with \a arguments if it takes some.
template<auto operation, auto... arguments>
void onStore(CommandActions &actions)
{
    std::invoke(operation, actions.store(), arguments...);
}

template<auto operation>
void onOutputs(CommandActions &actions)
{
    std::invoke(operation, actions.outputs());
}

/// Emits a signal of the actions, for what the program's windows do.
template<auto signal>
void request(CommandActions &actions)
{
    std::invoke(signal, actions);
}

bool canUndo(const WorkspaceStore &store)
{
    return store.canUndo();
}

bool canRedo(const WorkspaceStore &store)
{
    return store.canRedo();
}

bool hasSelectedSlide(const WorkspaceStore &store)
{
    return store.slideWithID(store.selectedSlideID()).has_value();
}

bool hasSlides(const WorkspaceStore &store)
{
    return firstSlideID(store.project()).has_value();
}

template<int step>
bool canStepSlide(const WorkspaceStore &store)
{
    const auto position = store.positionOf(store.selectedSlideID());
    return position && edits::canStepSlide(store.project(), *position, step);
}

template<int step>
bool canStepSection(const WorkspaceStore &store)
{
    const auto index = itemIndex(store.project(), store.selectedServiceItemID());
    return index && *index + step >= 0 && *index + step < store.project().serviceItems.size();
}

/// Moves the selected section, which need not be the one that the selected slide is in.
template<int step>
void stepSection(CommandActions &actions)
{
    WorkspaceStore &store = actions.store();
    store.keepServiceItem([&store] { store.moveSelectedServiceItem(step); });
}

bool hasCopyable(const WorkspaceStore &store)
{
    switch (store.lastSelected()) {
    case SelectionKind::section:
        return false;
    case SelectionKind::slide:
        return hasSelectedSlide(store);
    case SelectionKind::layer:
        return store.selectedElement().has_value();
    }
    return false;
}

/// Calls the operation for what was selected last.
template<auto onSlide, auto onLayer>
void onSelected(CommandActions &actions)
{
    const bool isLayer = actions.store().lastSelected() == SelectionKind::layer;
    std::invoke(isLayer ? onLayer : onSlide, actions.store());
}

void copySelected(CommandActions &actions)
{
    copyToClipboard(actions.store());
}

constexpr auto deleteLastSelected =
    onSelected<&WorkspaceStore::deleteSelectedSlide, &WorkspaceStore::deleteSelectedElement>;

/// Only what has been copied is deleted.
void cutSelected(CommandActions &actions)
{
    if (copyToClipboard(actions.store()))
        deleteLastSelected(actions);
}

void pasteIntoDocument(CommandActions &actions)
{
    pasteFromClipboard(actions.store());
}

template<OutputMode mode>
bool isMode(const WorkspaceStore &store, const OutputWindows & /*outputs*/)
{
    return store.outputMode() == mode;
}

bool isDisplayOpen(const WorkspaceStore & /*store*/, const OutputWindows &outputs)
{
    return outputs.isDisplayWindowOpen();
}

bool isStageOpen(const WorkspaceStore & /*store*/, const OutputWindows &outputs)
{
    return outputs.isStageWindowOpen();
}

bool isStageFullScreen(const WorkspaceStore & /*store*/, const OutputWindows &outputs)
{
    return outputs.isStageFullScreen();
}

bool canToggleStageFullScreen(const OutputWindows &outputs)
{
    return outputs.canToggleStageFullScreen();
}

constexpr auto commands = std::to_array<CommandDescription>({
    {.command = Command::newProject,
     .title = "New Project...",
     .buttonTitle = "New",
     .toolTip = "New project",
     .symbol = "doc.badge.plus",
     .keys = {"Ctrl+N"},
     .worksOnDocument = true,
     .run = onStore<&WorkspaceStore::showStartPanel>},
    {.command = Command::newBlankProject,
     .title = "New Blank Project",
     .symbol = "doc.badge.plus",
     .worksOnDocument = true,
     .dropsDocument = true,
     .run = onStore<&WorkspaceStore::newBlankProject>},
    {.command = Command::newSundayService,
     .title = "New Sunday Service",
     .symbol = "calendar.badge.plus",
     .worksOnDocument = true,
     .dropsDocument = true,
     .run = onStore<&WorkspaceStore::newSundayServiceProject>},
    {.command = Command::openDemoService,
     .title = "Open Demo Service",
     .symbol = "play.square.stack",
     .worksOnDocument = true,
     .dropsDocument = true,
     .run = onStore<&WorkspaceStore::loadDemoProject>},
    {.command = Command::open,
     .title = "Open...",
     .buttonTitle = "Open",
     .toolTip = "Open a project",
     .symbol = "folder",
     .keys = {"Ctrl+O"},
     .worksOnDocument = true,
     .dropsDocument = true,
     .run = onStore<&WorkspaceStore::openProjectWithPanel>},
    {.command = Command::save,
     .title = "Save",
     .toolTip = "Save the project",
     .symbol = "square.and.arrow.down",
     .keys = {"Ctrl+S"},
     .worksOnDocument = true,
     .continuesTyping = true,
     .run = onStore<&WorkspaceStore::saveProject>},
    {.command = Command::saveAs,
     .title = "Save As...",
     .keys = {"Ctrl+Shift+S"},
     .worksOnDocument = true,
     .run = onStore<&WorkspaceStore::saveProjectAs>},
    {.command = Command::exportShow,
     .title = "Export...",
     .keys = {"Ctrl+Shift+E"},
     .worksOnDocument = true,
     .isEnabled = hasSlides,
     .run = request<&CommandActions::exportRequested>},
    {.command = Command::quit,
     .title = "Quit",
     .keys = {"Ctrl+Q"},
     .role = QAction::QuitRole,
     .worksOnDocument = true,
     .run = request<&CommandActions::quitRequested>},
    {.command = Command::undo,
     .title = "Undo",
     .keys = {"Ctrl+Z"},
     .worksOnDocument = true,
     .continuesTyping = true,
     .repeats = true,
     .isEnabled = canUndo,
     .run = onStore<&WorkspaceStore::undo>},
    {.command = Command::redo,
     .title = "Redo",
     .keys = {"Ctrl+Shift+Z"},
     .worksOnDocument = true,
     .continuesTyping = true,
     .repeats = true,
     .isEnabled = canRedo,
     .run = onStore<&WorkspaceStore::redo>},
    {.command = Command::cut,
     .title = "Cut Slide",
     .titleForLayer = "Cut Layer",
     .keys = {"Ctrl+X"},
     .worksOnDocument = true,
     .worksOnSelection = true,
     .isEnabled = hasCopyable,
     .run = cutSelected},
    {.command = Command::copy,
     .title = "Copy Slide",
     .titleForLayer = "Copy Layer",
     .keys = {"Ctrl+C"},
     .worksOnDocument = true,
     .worksOnSelection = true,
     .isEnabled = hasCopyable,
     .run = copySelected},
    // Always enabled: to ask what is on the clipboard may take as long as its owner does.
    {.command = Command::paste,
     .title = "Paste",
     .keys = {"Ctrl+V"},
     .worksOnDocument = true,
     .worksOnSelection = true,
     .run = pasteIntoDocument},
    {.command = Command::duplicate,
     .title = "Duplicate Slide",
     .titleForLayer = "Duplicate Layer",
     .keys = {"Ctrl+D"},
     .worksOnDocument = true,
     .worksOnSelection = true,
     .isEnabled = hasCopyable,
     .run = onSelected<&WorkspaceStore::duplicateSelectedSlide,
                       &WorkspaceStore::duplicateSelectedElement>},
    {.command = Command::deleteSelected,
     .title = "Delete Slide",
     .titleForLayer = "Delete Layer",
     .keys = {"Delete"},
     .worksOnDocument = true,
     .worksOnSelection = true,
     .isEnabled = hasCopyable,
     .run = deleteLastSelected},
    {.command = Command::settings,
     .title = "Settings...",
     .keys = {"Ctrl+,"},
     .role = QAction::PreferencesRole,
     .run = request<&CommandActions::settingsRequested>},
    {.command = Command::goLive,
     .title = "Go Live",
     .toolTip = "Send the queued slide live",
     .symbol = "play.fill",
     .keys = {"Space"},
     .run = onStore<&WorkspaceStore::goLive>},
    // The same command again, for its other keys.
    {.command = Command::goLiveByReturn,
     .title = "Go Live",
     .symbol = "play.fill",
     .keys = {"Return", "Enter"},
     .run = onStore<&WorkspaceStore::goLive>},
    // Page Down and Page Up are what presentation remotes send.
    {.command = Command::nextLive,
     .title = "Next Live Slide",
     .buttonTitle = "Next",
     .toolTip = "Next live slide",
     .symbol = "forward.end.fill",
     .keys = {"Right", "PgDown"},
     .run = onStore<&WorkspaceStore::nextLive>},
    {.command = Command::previousLive,
     .title = "Previous Live Slide",
     .buttonTitle = "Previous",
     .toolTip = "Previous live slide",
     .symbol = "backward.end.fill",
     .keys = {"Left", "PgUp"},
     .run = onStore<&WorkspaceStore::previousLive>},
    {.command = Command::queueNext,
     .title = "Queue Next",
     .toolTip = "Queue the next slide",
     .symbol = "arrow.down",
     .keys = {"Down"},
     .run = onStore<&WorkspaceStore::queueNext>},
    {.command = Command::queuePrevious,
     .title = "Queue Previous",
     .buttonTitle = "Queue Prev",
     .toolTip = "Queue the slide before",
     .symbol = "arrow.up",
     .keys = {"Up"},
     .run = onStore<&WorkspaceStore::queuePrevious>},
    {.command = Command::goToSlide,
     .title = "Go to Slide...",
     .keys = {"Ctrl+F"},
     .worksOnDocument = true,
     .isEnabled = hasSlides,
     .run = request<&CommandActions::goToSlideRequested>},
    {.command = Command::toggleBlackout,
     .title = "Toggle Blackout",
     .buttonTitle = "Blackout",
     .symbol = "circle.fill",
     .keys = {"B"},
     .isOn = isMode<OutputMode::blackout>,
     .run = onStore<&WorkspaceStore::toggleBlackout>},
    {.command = Command::toggleLogo,
     .title = "Toggle Logo",
     .buttonTitle = "Logo",
     .symbol = "sparkles",
     .keys = {"L"},
     .isOn = isMode<OutputMode::logo>,
     .run = onStore<&WorkspaceStore::toggleLogo>},
    {.command = Command::toggleDisplayWindow,
     .title = "Open Display Window",
     .titleWhileOn = "Close Display Window",
     .buttonTitle = "Display",
     .toolTip = "Open or close the audience display; on a single screen, Escape pressed twice "
                "within a second closes it",
     .symbol = "tv",
     .isOn = isDisplayOpen,
     .run = onOutputs<&OutputWindows::toggleDisplayWindow>},
    {.command = Command::toggleStageWindow,
     .title = "Open Monitor Window",
     .titleWhileOn = "Close Monitor Window",
     .buttonTitle = "Monitor",
     .toolTip = "Open or close the stage monitor",
     .symbol = "rectangle.inset.filled.and.person.filled",
     .isOn = isStageOpen,
     .run = onOutputs<&OutputWindows::toggleStageWindow>},
    {.command = Command::toggleStageFullScreen,
     .title = "Fill Screen with Monitor",
     .titleWhileOn = "Show Monitor in a Window",
     .toolTip = "Have the stage monitor fill the screen that it is on, or be a window again, as a "
                "double click on it does",
     .keys = {"F11"},
     .continuesTyping = true,
     .isPossible = canToggleStageFullScreen,
     .isOn = isStageFullScreen,
     .run = onOutputs<&OutputWindows::toggleStageFullScreen>},
    {.command = Command::about,
     .title = "About Quenara",
     .role = QAction::AboutRole,
     .run = request<&CommandActions::aboutRequested>},
    {.command = Command::addSection,
     .title = "Add section",
     .symbol = "folder.badge.plus",
     .worksOnDocument = true,
     .run = onStore<&WorkspaceStore::addServiceItem, ServiceItemType::custom>},
    {.command = Command::pasteSongLyrics,
     .title = "Paste song lyrics",
     .symbol = "music.note.list",
     .worksOnDocument = true,
     .run = onStore<&WorkspaceStore::setSongImportPresented, true>},
    {.command = Command::addSlide,
     .title = "Slide",
     .toolTip = "Add slide",
     .worksOnDocument = true,
     .run = onStore<&WorkspaceStore::addSlide>},
    {.command = Command::duplicateSlide,
     .title = "Duplicate",
     .buttonTitle = "Duplicate selected slide",
     .symbol = "plus.square.on.square",
     .worksOnDocument = true,
     .run = onStore<&WorkspaceStore::duplicateSelectedSlide>},
    {.command = Command::deleteSlide,
     .title = "Delete",
     .buttonTitle = "Delete selected slide",
     .symbol = "trash",
     .worksOnDocument = true,
     .run = onStore<&WorkspaceStore::deleteSelectedSlide>},
    {.command = Command::moveSlideUp,
     .title = "Move slide up",
     .symbol = "arrow.up",
     .worksOnDocument = true,
     .run = onStore<&WorkspaceStore::moveSelectedSlide, -1>},
    {.command = Command::moveSlideDown,
     .title = "Move slide down",
     .symbol = "arrow.down",
     .worksOnDocument = true,
     .run = onStore<&WorkspaceStore::moveSelectedSlide, +1>},
    {.command = Command::moveSectionUp,
     .title = "Move section up",
     .symbol = "chevron.up",
     .worksOnDocument = true,
     .run = onStore<&WorkspaceStore::moveSelectedServiceItem, -1>},
    {.command = Command::moveSectionDown,
     .title = "Move section down",
     .symbol = "chevron.down",
     .worksOnDocument = true,
     .run = onStore<&WorkspaceStore::moveSelectedServiceItem, +1>},
    // Unlike the buttons, these go from section to section, and end where the rundown does.
    {.command = Command::stepSlideUp,
     .title = "Move Slide Up",
     .keys = {"Alt+Up"},
     .worksOnDocument = true,
     .isEnabled = canStepSlide<-1>,
     .run = onStore<&WorkspaceStore::stepSelectedSlide, -1>},
    {.command = Command::stepSlideDown,
     .title = "Move Slide Down",
     .keys = {"Alt+Down"},
     .worksOnDocument = true,
     .isEnabled = canStepSlide<+1>,
     .run = onStore<&WorkspaceStore::stepSelectedSlide, +1>},
    {.command = Command::stepSectionUp,
     .title = "Move Section Up",
     .keys = {"Alt+Shift+Up"},
     .worksOnDocument = true,
     .isEnabled = canStepSection<-1>,
     .run = stepSection<-1>},
    {.command = Command::stepSectionDown,
     .title = "Move Section Down",
     .keys = {"Alt+Shift+Down"},
     .worksOnDocument = true,
     .isEnabled = canStepSection<+1>,
     .run = stepSection<+1>},
    {.command = Command::deleteSection,
     .title = "Delete selected section",
     .symbol = "folder.badge.minus",
     .worksOnDocument = true,
     .run = onStore<&WorkspaceStore::deleteSelectedServiceItem>},
    {.command = Command::addTextLayer,
     .title = "Text",
     .toolTip = "Add a text layer",
     .symbol = "textformat",
     .worksOnDocument = true,
     .isEnabled = hasSelectedSlide,
     .run = onStore<&WorkspaceStore::addTextLayer, SlideElementKind::text>},
    {.command = Command::addLyricLayer,
     .title = "Lyric",
     .toolTip = "Add a lyric layer",
     .symbol = "music.note",
     .worksOnDocument = true,
     .isEnabled = hasSelectedSlide,
     .run = onStore<&WorkspaceStore::addTextLayer, SlideElementKind::songLyricText>},
    {.command = Command::addImageLayer,
     .title = "Image",
     .toolTip = "Add an image layer",
     .symbol = "photo",
     .worksOnDocument = true,
     .isEnabled = hasSelectedSlide,
     .run = onStore<&WorkspaceStore::addImageLayerWithPanel>},
});

static_assert(entriesStandAtTheirCases(commands, &CommandDescription::command));

constexpr bool eachIsWhole()
{
    return std::all_of(commands.begin(), commands.end(), [](const CommandDescription &command) {
        return !std::string_view(command.title).empty()
            && (!command.dropsDocument || command.worksOnDocument);
    });
}
static_assert(eachIsWhole());

} // namespace

std::span<const CommandDescription> commandDescriptions()
{
    return commands;
}

const CommandDescription &descriptionOf(Command command)
{
    return commands.at(std::size_t(command));
}

QList<QKeySequence> keysOf(const CommandDescription &description)
{
    QList<QKeySequence> keys;
    for (const char *key : description.keys) {
        if (key)
            keys.append(QKeySequence(QString::fromUtf8(key), QKeySequence::PortableText));
    }
    return keys;
}

bool hasBareKey(const CommandDescription &description)
{
    const QList<QKeySequence> keys = keysOf(description);
    return std::any_of(keys.cbegin(), keys.cend(), [](const QKeySequence &key) {
        return !(key[0].keyboardModifiers()
                 & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    });
}

} // namespace quenara
