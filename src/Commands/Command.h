#pragma once

#include <QAction>
#include <QKeySequence>
#include <QList>

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
    exportShow,
    quit,
    undo,
    redo,
    cut,
    copy,
    paste,
    duplicate,
    deleteSelected,
    settings,
    goLive,
    goLiveByReturn,
    nextLive,
    previousLive,
    queueNext,
    queuePrevious,
    goToSlide,
    toggleBlackout,
    toggleLogo,
    toggleDisplayWindow,
    toggleStageWindow,
    toggleStageFullScreen,
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
    stepSlideUp,
    stepSlideDown,
    stepSectionUp,
    stepSectionDown,
    deleteSection,
    addTextLayer,
    addLyricLayer,
    addImageLayer,
};

/// What menus, buttons, keys and the guide need to know of a command.
struct CommandDescription
{
    Command command{};
    const char *title = ""; ///< of its menu item
    const char *titleWhileOn = nullptr; ///< of its menu item while `isOn`; null: `title`
    const char *titleForLayer =
        nullptr; ///< the same while a layer was selected last; null: `title`
    const char *buttonTitle = nullptr; ///< its button's text, or name and tooltip; null: `title`
    const char *toolTip = nullptr; ///< of its button, before its first key; null: the button's text
    const char *symbol = ""; ///< of its button: a name in `resources/icons.list`, or empty
    std::array<const char *, 2> keys{}; ///< portable key sequences; null where there is none
    QAction::MenuRole role = QAction::NoRole; ///< the place that some platforms have for it
    bool worksOnDocument = false; ///< not done while a dialog is open
    bool dropsDocument = false; ///< needs the operator's consent if there are unsaved changes
    /// Its keys work where the selection is seen, in the operator's window; a text that has the
    /// keyboard keeps them.
    bool worksOnSelection = false;
    bool continuesTyping = false; ///< the field that is typed into keeps the keyboard
    bool repeats = false; ///< done again and again while its key is held down
    bool (*isEnabled)(const WorkspaceStore &store) = nullptr; ///< null: always
    bool (*isPossible)(const OutputWindows &outputs) = nullptr; ///< as isEnabled, of the windows
    /// For a command that switches something on and off; null for all others.
    bool (*isOn)(const WorkspaceStore &store, const OutputWindows &outputs) = nullptr;
    void (*run)(CommandActions &actions) = nullptr;
};

/// Every command once, in the order of the enumeration.
[[nodiscard]] std::span<const CommandDescription> commandDescriptions();
[[nodiscard]] const CommandDescription &descriptionOf(Command command);

/// The keys of the command, the one that menus show first.
[[nodiscard]] QList<QKeySequence> keysOf(const CommandDescription &description);

/// Whether some key does the command without Ctrl, Alt or Meta. Only the show has such keys, and
/// Delete.
[[nodiscard]] bool hasBareKey(const CommandDescription &description);

} // namespace quenara
