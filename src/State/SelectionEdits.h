#pragma once

#include "Session.h"
#include "WorkspaceState.h"

#include <QString>

#include <optional>

/// Selection, queue and live as pure functions from one workspace value to the next. None touches
/// the project. They rely on order indexes that mirror the lists.
namespace quenara::edits {

/// Selects \a id even if no slide has it. Then no item and no layer is selected.
[[nodiscard]] WorkspaceState selectSlide(WorkspaceState state, const QString &id, bool queue);

/// The first slide with its item and its first text layer selected; nothing in an empty show.
[[nodiscard]] WorkspaceState selectFirstSlide(WorkspaceState state);

/// selectFirstSlide(), and that slide queued and live.
[[nodiscard]] WorkspaceState startAtFirstSlide(WorkspaceState state);

/// Selection, queue, live slide and output mode as \a session has them. A slide that its identifier
/// does not find is the one in its place if the file, now of \a fileVersion, is as it was.
/// Other ids are repaired; if the live slide is gone, nobody has sent what takes its place: black.
[[nodiscard]] WorkspaceState continueShow(WorkspaceState state, const Session &session,
                                          const QString &fileVersion);

/// Sends the queued slide (else the selected one, else the first) live and ends any other output
/// mode.
[[nodiscard]] WorkspaceState goLive(WorkspaceState state);

/// Moves selection, queue and live together by \a offset from the live (else the selected) slide.
/// Without a neighbour there, the first slide of the show; in an empty show nothing changes. The
/// selected item and layer stay as they are.
[[nodiscard]] WorkspaceState stepLive(WorkspaceState state, qsizetype offset);

/// Selects and queues the neighbour by \a offset of the queued (else the live, else the selected)
/// slide; nothing changes where there is none.
[[nodiscard]] WorkspaceState stepQueue(WorkspaceState state, qsizetype offset);

/// \a mode, or live if it is on already. The live slide stays.
[[nodiscard]] WorkspaceState toggleOutputMode(WorkspaceState state, OutputMode mode);

/// Whether the same item, slide and layer are selected in both.
[[nodiscard]] bool isSameSelection(const WorkspaceState &a, const WorkspaceState &b);

/// Makes every id point at something that exists: an unknown selected slide becomes the first one,
/// an unknown queued or live slide the selected one, an unknown layer the selected slide's first.
[[nodiscard]] WorkspaceState repairSelection(WorkspaceState state);

} // namespace quenara::edits
