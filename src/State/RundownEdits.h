#pragma once

#include "Clips.h"
#include "Show.h"
#include "WorkspaceState.h"

#include <QString>

#include <functional>
#include <optional>

/// Edits of items and slides as pure functions from one workspace value to the next, including the
/// ids they select. Nothing comes back when there is nothing to work on; then no undo step is
/// made. Order indexes are left to the store, which renumbers after every edit.
namespace quenara::edits {

using Edited = std::optional<WorkspaceState>;

[[nodiscard]] Edited renameProject(WorkspaceState state, const QString &name);

/// Appends an item with one slide of the type's default template; both selected, the slide queued.
[[nodiscard]] Edited addServiceItem(WorkspaceState state, ServiceItemType type);

/// Appends a song made of pasted lyrics; it and its first slide, if any, selected, the slide
/// queued.
[[nodiscard]] Edited importSong(WorkspaceState state, const QString &title, const QString &lyrics);

/// Applies \a update to the first item with this id. An unknown id is an edit without a change.
[[nodiscard]] Edited updateServiceItem(WorkspaceState state, const QString &id,
                                       const std::function<void(ServiceItem &)> &update);

/// Removes the selected item; the first remaining one and its first slide are selected and queued,
/// and live if nothing was.
[[nodiscard]] Edited deleteSelectedServiceItem(WorkspaceState state);

/// Swaps the selected item with the one \a delta places away; nothing if there is none.
[[nodiscard]] Edited moveSelectedServiceItem(WorkspaceState state, qsizetype delta);

/// Moves the item with that id and its slides to where \a toPosition other items stand before it.
/// Nothing for an unknown id, a place outside the rundown and the place that it has.
[[nodiscard]] Edited moveServiceItem(WorkspaceState state, const QString &id, qsizetype toPosition);

/// Appends a slide to the selected item (else to the first); without such an item, a custom item
/// with its slide.
[[nodiscard]] Edited addSlide(WorkspaceState state);

/// A copied slide, under new ids, right after the selected one; selected and queued. Where another
/// item is selected, at the end of that; without a slide, of the first item; without an item, in a
/// custom one.
[[nodiscard]] Edited pasteSlide(WorkspaceState state, const SlideClip &clip);

/// A copy under a new id, right after the selected slide; selected and queued. Layers keep their
/// ids.
[[nodiscard]] Edited duplicateSelectedSlide(WorkspaceState state);

/// Its successor in the item (else the predecessor, else the first slide of the show) is selected
/// and queued, and live if the deleted one was. An emptied item stays.
[[nodiscard]] Edited deleteSelectedSlide(WorkspaceState state);

/// Swaps the selected slide with the one \a delta places away in its item. Where there is none,
/// this is an edit without a change.
[[nodiscard]] Edited moveSelectedSlide(WorkspaceState state, qsizetype delta);

/// Moves the slide with that id to where \a toPosition other slides stand before it in that item,
/// its own or another one. Nothing for unknown ids, a place outside the item and the place that the
/// slide has.
[[nodiscard]] Edited moveSlide(WorkspaceState state, const QString &id,
                               const QString &toServiceItemID, qsizetype toPosition);

/// Moves the selected slide one place up (-1) or down (+1): past the first place of its item to the
/// end of the item before, past the last to the beginning of the next. Nothing at the ends of the
/// rundown.
[[nodiscard]] Edited stepSelectedSlide(WorkspaceState state, int step);

/// Whether stepSelectedSlide() moves a slide that stands there.
[[nodiscard]] bool canStepSlide(const ZelvoProject &project, const SlidePosition &position,
                                int step);

/// Applies \a update to the selected slide and brings its body in step with its design.
[[nodiscard]] Edited updateSelectedSlide(WorkspaceState state,
                                         const std::function<void(Slide &)> &update);

/// Gives \a slide another title, and its text to the first layer whose name has "title" in it: a
/// template's title layer follows the title of its slide. The body comes in step with the design.
void retitle(Slide &slide, const QString &title);

/// Rebuilds the selected slide's design; the first text layer is selected.
[[nodiscard]] Edited applyTemplateToSelectedSlide(WorkspaceState state, const QString &templateID);

} // namespace quenara::edits
