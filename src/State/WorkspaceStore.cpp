#include "WorkspaceStore.h"

#include "ProjectNormalizer.h"
#include "RecentProjectsStore.h"
#include "SelectionEdits.h"
#include "Show.h"

#include <utility>

namespace quenara {

WorkspaceStore::WorkspaceStore(ZelvoProject project, Environment environment, QObject *parent)
    : QObject(parent), m_environment(std::move(environment))
{
    m_state.project = ProjectNormalizer::withMirroredOrder(std::move(project));
    m_state.recentProjects = RecentProjectsStore::load(m_environment.preferences);
    m_state = edits::startAtFirstSlide(std::move(m_state));
}

QList<FlattenedSlide> WorkspaceStore::flattenedSlides() const
{
    if (!m_flattenedSlides)
        m_flattenedSlides = quenara::flattenedSlides(m_state.project);
    return *m_flattenedSlides;
}

std::optional<SlideElement> WorkspaceStore::selectedElement() const
{
    const std::optional<Slide> slide = slideWithID(m_state.selectedSlideID);
    const auto index = slide ? elementIndex(*slide, m_state.selectedElementID) : std::nullopt;
    return index ? std::optional(slide->design.elements.at(*index)) : std::nullopt;
}

/// Every view asks for the same few slides after each change.
std::optional<SlidePosition> WorkspaceStore::positionOf(const std::optional<QString> &slideID) const
{
    if (!slideID)
        return std::nullopt;
    const auto known = m_positions.constFind(*slideID);
    if (known != m_positions.cend())
        return *known;
    const auto found = quenara::positionOf(m_state.project, slideID);
    if (found)
        m_positions.insert(*slideID, *found);
    return found;
}

std::optional<Slide> WorkspaceStore::nextSlide() const
{
    const auto next = positionAfter(m_state.project, positionOf(m_state.liveSlideID));
    return next ? std::optional(slideAt(m_state.project, *next)) : std::nullopt;
}

QList<Slide> WorkspaceStore::slidesAhead() const
{
    QList<Slide> slides;
    for (const WorkspaceState &next :
         {edits::stepLive(m_state, 1), edits::goLive(m_state), edits::stepLive(m_state, -1)}) {
        if (const std::optional<Slide> slide = slideWithID(next.liveSlideID))
            slides.append(*slide);
    }
    return slides;
}

std::optional<Slide> WorkspaceStore::slideWithID(const std::optional<QString> &id) const
{
    const auto position = positionOf(id);
    return position ? std::optional(slideAt(m_state.project, *position)) : std::nullopt;
}

void WorkspaceStore::publish(WorkspaceState state)
{
    if (!edits::isSameSelection(m_state, state))
        m_gesture.reset();
    publish(std::move(state), m_undoStore);
}

void WorkspaceStore::publish(WorkspaceState state, UndoRedoStore history)
{
    state.canUndo = !history.undoStack().isEmpty();
    state.canRedo = !history.redoStack().isEmpty();
    const WorkspaceState before = std::exchange(m_state, std::move(state));
    m_undoStore = std::move(history);

    // What differs is settled before the first signal: a slot may call another operation.
    QList<void (WorkspaceStore::*)()> signalsToEmit;
#define QUENARA_COMPARE(type, name, initial)                                                       \
    if (before.name != m_state.name)                                                               \
        signalsToEmit.append(&WorkspaceStore::name##Changed);
    QUENARA_PUBLISHED_FIELDS(QUENARA_COMPARE)
#undef QUENARA_COMPARE
    if (signalsToEmit.contains(&WorkspaceStore::projectChanged)) {
        m_flattenedSlides.reset();
        m_positions.clear();
    }
    if (!signalsToEmit.isEmpty())
        signalsToEmit.append(&WorkspaceStore::changed);
    for (const auto signal : std::as_const(signalsToEmit))
        emit(this->*signal)();
}

} // namespace quenara
