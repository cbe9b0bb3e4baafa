#include "SelectionEdits.h"

#include "Show.h"

#include <utility>

namespace quenara::edits {

namespace {

std::optional<QString> itemIDOf(const ZelvoProject &project, const std::optional<QString> &slideID)
{
    const auto position = positionOf(project, slideID);
    return position ? std::optional(project.serviceItems.at(position->item).id) : std::nullopt;
}

std::optional<QString> neighborSlideID(const ZelvoProject &project,
                                       const std::optional<QString> &slideID, qsizetype offset)
{
    const auto position = positionOf(project, slideID);
    if (!position)
        return std::nullopt;
    const auto target = positionAt(project, position->absolute + offset);
    return target ? std::optional(slideAt(project, *target).id) : std::nullopt;
}

void repairElement(WorkspaceState &state, const SlidePosition &selected)
{
    if (!state.selectedElementID)
        return;
    const Slide &slide = slideAt(state.project, selected);
    if (elementIndex(slide, state.selectedElementID))
        return;
    const QList<SlideElement> &elements = slide.design.elements;
    state.selectedElementID =
        elements.isEmpty() ? std::nullopt : std::optional(elements.first().id);
}

} // namespace

WorkspaceState selectSlide(WorkspaceState state, const QString &id, bool queue)
{
    state.selectedSlideID = id;
    state.selectedElementID.reset();
    state.selectedServiceItemID = itemIDOf(state.project, id);
    state.lastSelected = SelectionKind::slide;
    if (queue)
        state.queuedSlideID = id;
    return state;
}

WorkspaceState selectFirstSlide(WorkspaceState state)
{
    const auto first = positionAt(state.project, 0);
    state.selectedSlideID = firstSlideID(state.project);
    state.selectedServiceItemID = itemIDOf(state.project, state.selectedSlideID);
    state.selectedElementID =
        first ? slideAt(state.project, *first).design.firstTextElementID() : std::nullopt;
    state.lastSelected = SelectionKind::slide;
    return state;
}

WorkspaceState startAtFirstSlide(WorkspaceState state)
{
    state = selectFirstSlide(std::move(state));
    state.queuedSlideID = state.selectedSlideID;
    state.liveSlideID = state.selectedSlideID;
    return state;
}

WorkspaceState continueShow(WorkspaceState state, const Session &session,
                            const QString &fileVersion)
{
    const bool isSameFile = session.filePlaces && session.fileVersion == fileVersion;
    const auto found = [&](const std::optional<QString> &id,
                           std::optional<std::int64_t> FilePlaces::*place) {
        if (!id || !isSameFile || positionOf(state.project, id))
            return id;
        const std::optional<std::int64_t> &index = *session.filePlaces.*place;
        const auto position = index ? positionAt(state.project, *index) : std::nullopt;
        return position ? std::optional(slideAt(state.project, *position).id) : id;
    };
    state.selectedServiceItemID = session.selectedServiceItemID;
    state.selectedSlideID = found(session.selectedSlideID, &FilePlaces::selected);
    state.queuedSlideID = found(session.queuedSlideID, &FilePlaces::queued);
    state.liveSlideID = found(session.liveSlideID, &FilePlaces::live);
    state.selectedElementID = session.selectedElementID;
    state.lastSelected = SelectionKind::slide;
    state.outputMode = session.outputMode;
    const auto isGone = [&state](const std::optional<QString> &id) {
        return id && !positionOf(state.project, id);
    };
    if (isGone(state.liveSlideID))
        state.outputMode = OutputMode::blackout;
    const bool isAsItWas = state.selectedSlideID == session.selectedSlideID
        && !isGone(state.selectedSlideID) && !isGone(state.queuedSlideID)
        && !isGone(state.liveSlideID);
    return isAsItWas ? state : repairSelection(std::move(state));
}

WorkspaceState goLive(WorkspaceState state)
{
    if (!state.queuedSlideID) {
        state.queuedSlideID =
            state.selectedSlideID ? state.selectedSlideID : firstSlideID(state.project);
    }
    state.liveSlideID = state.queuedSlideID;
    state.outputMode = OutputMode::live;
    return state;
}

WorkspaceState stepLive(WorkspaceState state, qsizetype offset)
{
    const auto base = state.liveSlideID ? state.liveSlideID : state.selectedSlideID;
    auto target = neighborSlideID(state.project, base, offset);
    if (!target)
        target = firstSlideID(state.project);
    if (!target)
        return state;
    state.selectedSlideID = target;
    state.lastSelected = SelectionKind::slide;
    state.queuedSlideID = target;
    state.liveSlideID = target;
    state.outputMode = OutputMode::live;
    return state;
}

WorkspaceState stepQueue(WorkspaceState state, qsizetype offset)
{
    auto base = state.queuedSlideID;
    if (!base)
        base = state.liveSlideID ? state.liveSlideID : state.selectedSlideID;
    const auto target = neighborSlideID(state.project, base, offset);
    return target ? selectSlide(std::move(state), *target, true) : state;
}

WorkspaceState toggleOutputMode(WorkspaceState state, OutputMode mode)
{
    state.outputMode = state.outputMode == mode ? OutputMode::live : mode;
    return state;
}

bool isSameSelection(const WorkspaceState &a, const WorkspaceState &b)
{
    return a.selectedServiceItemID == b.selectedServiceItemID
        && a.selectedSlideID == b.selectedSlideID && a.selectedElementID == b.selectedElementID;
}

WorkspaceState repairSelection(WorkspaceState state)
{
    const ZelvoProject &project = std::as_const(state.project);
    std::optional<SlidePosition> selected = positionOf(project, state.selectedSlideID);
    if (state.selectedSlideID && !selected) {
        selected = positionAt(project, 0);
        state.selectedSlideID = firstSlideID(project);
        state.lastSelected = SelectionKind::slide;
    }
    const auto isUnknown = [&](const std::optional<QString> &id) {
        return id && id != state.selectedSlideID && !positionOf(project, id);
    };
    if (isUnknown(state.queuedSlideID))
        state.queuedSlideID = state.selectedSlideID;
    if (isUnknown(state.liveSlideID))
        state.liveSlideID = state.selectedSlideID;
    state.selectedServiceItemID.reset();
    if (selected) {
        repairElement(state, *selected);
        state.selectedServiceItemID = project.serviceItems.at(selected->item).id;
    }
    return state;
}

} // namespace quenara::edits
