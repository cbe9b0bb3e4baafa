#pragma once

#include <QAction>

#include <array>
#include <cstdint>
#include <span>

namespace quenara {

class CommandActions;
class OutputWindows;
class WorkspaceStore;

/// What the operator can have done by a menu item, a key or a button.
enum class Command : std::uint8_t {
    newProject,
    newBlankProject,
    newSundayService,
    openDemoService,
    open,
    save,
    saveAs,
    quit,
    undo,
    redo,
    settings,
    goLive,
    goLiveByReturn,
    nextLive,
    previousLive,
    queueNext,
    queuePrevious,
    toggleBlackout,
    toggleLogo,
    toggleDisplayWindow,
    toggleStageWindow,
    about,
    addSection,
    pasteSongLyrics,
    addSlide,
    duplicateSlide,
    deleteSlide,
    moveSlideUp,
    moveSlideDown,
    moveSectionUp,
    moveSectionDown,
    deleteSection,
    addTextLayer,
    addLyricLayer,
    addImageLayer,
};

/// All that menus, buttons, keys and the guide have to know of a command.
struct CommandDescription
{
    Command command{};
    const char *title = ""; ///< of its menu item
    const char *titleWhileOn = nullptr; ///< the menu item's while `isOn`, if it is another one then
    const char *buttonTitle =
        nullptr; ///< the button's text, or its name and tooltip; null: `title`
    const char *symbol = ""; ///< the button's: a name in `resources/icons.list`, or empty
    std::array<const char *, 2> keys{}; ///< portable key sequences; null where there is none
    QAction::MenuRole role = QAction::NoRole; ///< where a platform has a place of its own for it
    bool worksOnDocument = false; ///< not to be done while a dialog asks the operator something
    bool dropsDocument = false; ///< needs the operator's consent if there are unsaved changes
    bool continuesTyping =
        false; ///< the field that is typed into has the keyboard again afterwards
    bool repeats = false; ///< again and again while its key is held down
    bool (*isEnabled)(const WorkspaceStore &store) = nullptr; ///< null: always
    /// For a command that switches something on and off; null for all others.
    bool (*isOn)(const WorkspaceStore &store, const OutputWindows &outputs) = nullptr;
    void (*run)(CommandActions &actions) = nullptr;
};

/// Every command once, at the place that its enumerator has.
[[nodiscard]] std::span<const CommandDescription> commandDescriptions();
[[nodiscard]] const CommandDescription &descriptionOf(Command command);

} // namespace quenara
