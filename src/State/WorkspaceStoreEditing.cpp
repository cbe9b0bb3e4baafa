#include "ProjectNormalizer.h"
#include "RundownEdits.h"
#include "SelectionEdits.h"
#include "WorkspaceStore.h"

#include <utility>

namespace quenara {

/// The one path by which the open document changes. The undo step of a gesture leads back to the
/// project as the gesture found it. There is none while the project is like that.
void WorkspaceStore::editProject(const Edit &edit, UndoStep step)
{
    std::optional<WorkspaceState> edited = edit(m_state);
    if (!edited)
        return;
    if (step == UndoStep::ofItsOwn)
        m_gesture.reset();
    edited->project = ProjectNormalizer::inCurrentSchema(std::move(edited->project));
    edited = edits::repairSelection(*std::move(edited));
    UndoRedoStore history = m_gesture ? m_gesture->history : m_undoStore;
    if (m_gesture && edited->project == m_gesture->project) {
        edited->hasUnsavedChanges = m_gesture->hadUnsavedChanges;
    } else {
        history.registerSnapshot(m_gesture ? m_gesture->project : m_state.project);
        edited->hasUnsavedChanges = true;
    }
    // A step of the show may leave ids behind that the next edit repairs. That is no selection by
    // the operator and does not end the gesture.
    if (m_gesture && !edits::isSameSelection(m_state, *edited)
        && !edits::isSameSelection(edits::repairSelection(m_state), *edited))
        m_gesture.reset();
    publish(*std::move(edited), std::move(history));
}

GestureID WorkspaceStore::beginGesture()
{
    m_lastGesture = GestureID(quint64(m_lastGesture) + 1);
    m_gesture = {m_lastGesture, m_state.project, m_undoStore, m_state.hasUnsavedChanges};
    return m_lastGesture;
}

void WorkspaceStore::endGesture(GestureID gesture)
{
    if (!isGestureOpen(gesture))
        return;
    m_gesture.reset();
    emit gestureEnded();
}

void WorkspaceStore::cancelGesture(GestureID gesture)
{
    if (!isGestureOpen(gesture))
        return;
    const Gesture cancelled = *std::exchange(m_gesture, std::nullopt);
    WorkspaceState next = m_state;
    next.project = cancelled.project;
    next.hasUnsavedChanges = cancelled.hadUnsavedChanges;
    publish(edits::repairSelection(std::move(next)), cancelled.history);
}

bool WorkspaceStore::isGestureOpen(GestureID gesture) const
{
    return m_gesture && m_gesture->id == gesture;
}

void WorkspaceStore::restore(std::optional<ZelvoProject> project, UndoRedoStore history)
{
    if (!project)
        return;
    WorkspaceState next = m_state;
    next.project = *std::move(project);
    next = edits::repairSelection(std::move(next));
    next.hasUnsavedChanges = true;
    publish(std::move(next), std::move(history));
}

void WorkspaceStore::undo()
{
    m_gesture.reset();
    UndoRedoStore history = m_undoStore;
    std::optional<ZelvoProject> project = history.undo(m_state.project);
    restore(std::move(project), std::move(history));
}

void WorkspaceStore::redo()
{
    m_gesture.reset();
    UndoRedoStore history = m_undoStore;
    std::optional<ZelvoProject> project = history.redo(m_state.project);
    restore(std::move(project), std::move(history));
}

void WorkspaceStore::updateProjectName(const QString &name)
{
    editProject([&](const WorkspaceState &state) { return edits::renameProject(state, name); },
                UndoStep::ofTheGesture);
}

void WorkspaceStore::addServiceItem(ServiceItemType type)
{
    editProject([&](const WorkspaceState &state) { return edits::addServiceItem(state, type); });
}

void WorkspaceStore::importSong(const QString &title, const QString &lyrics)
{
    editProject(
        [&](const WorkspaceState &state) { return edits::importSong(state, title, lyrics); });
}

void WorkspaceStore::updateServiceItem(const QString &id,
                                       const std::function<void(ServiceItem &)> &update)
{
    editProject(
        [&](const WorkspaceState &state) { return edits::updateServiceItem(state, id, update); },
        UndoStep::ofTheGesture);
}

void WorkspaceStore::deleteSelectedServiceItem()
{
    editProject(edits::deleteSelectedServiceItem);
}

void WorkspaceStore::moveSelectedServiceItem(qsizetype delta)
{
    editProject(
        [&](const WorkspaceState &state) { return edits::moveSelectedServiceItem(state, delta); });
}

void WorkspaceStore::moveServiceItem(const QString &id, qsizetype toPosition)
{
    editProject(
        [&](const WorkspaceState &state) { return edits::moveServiceItem(state, id, toPosition); });
}

void WorkspaceStore::addSlide()
{
    editProject(edits::addSlide);
}

void WorkspaceStore::pasteSlide(const SlideClip &clip)
{
    editProject([&](const WorkspaceState &state) { return edits::pasteSlide(state, clip); });
}

void WorkspaceStore::duplicateSelectedSlide()
{
    editProject(edits::duplicateSelectedSlide);
}

void WorkspaceStore::deleteSelectedSlide()
{
    editProject(edits::deleteSelectedSlide);
}

void WorkspaceStore::moveSelectedSlide(qsizetype delta)
{
    editProject(
        [&](const WorkspaceState &state) { return edits::moveSelectedSlide(state, delta); });
}

void WorkspaceStore::moveSlide(const QString &id, const QString &toServiceItemID,
                               qsizetype toPosition)
{
    editProject([&](const WorkspaceState &state) {
        return edits::moveSlide(state, id, toServiceItemID, toPosition);
    });
}

void WorkspaceStore::stepSelectedSlide(int step)
{
    editProject([&](const WorkspaceState &state) { return edits::stepSelectedSlide(state, step); });
}

void WorkspaceStore::updateSelectedSlide(const std::function<void(Slide &)> &update)
{
    editProject(
        [&](const WorkspaceState &state) { return edits::updateSelectedSlide(state, update); },
        UndoStep::ofTheGesture);
}

void WorkspaceStore::applyTemplateToSelectedSlide(const QString &templateID)
{
    editProject([&](const WorkspaceState &state) {
        return edits::applyTemplateToSelectedSlide(state, templateID);
    });
}

} // namespace quenara
