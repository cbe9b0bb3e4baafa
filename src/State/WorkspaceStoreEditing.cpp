#include "ProjectNormalizer.h"
#include "RundownEdits.h"
#include "SelectionEdits.h"
#include "WorkspaceStore.h"

#include <utility>

namespace quenara {

/// The one path by which the open document changes.
void WorkspaceStore::editProject(const Edit &edit)
{
    std::optional<WorkspaceState> edited = edit(m_state);
    if (!edited)
        return;
    UndoRedoStore history = m_undoStore;
    history.registerSnapshot(m_state.project);
    edited->project = ProjectNormalizer::withMirroredOrder(std::move(edited->project));
    edited = edits::repairSelection(*std::move(edited));
    edited->hasUnsavedChanges = true;
    publish(*std::move(edited), std::move(history));
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
    UndoRedoStore history = m_undoStore;
    std::optional<ZelvoProject> project = history.undo(m_state.project);
    restore(std::move(project), std::move(history));
}

void WorkspaceStore::redo()
{
    UndoRedoStore history = m_undoStore;
    std::optional<ZelvoProject> project = history.redo(m_state.project);
    restore(std::move(project), std::move(history));
}

void WorkspaceStore::updateProjectName(const QString &name)
{
    editProject([&](const WorkspaceState &state) { return edits::renameProject(state, name); });
}

void WorkspaceStore::addServiceItem(ServiceItemType type)
{
    editProject([&](const WorkspaceState &state) { return edits::addServiceItem(state, type); });
}

void WorkspaceStore::updateServiceItem(const QString &id,
                                       const std::function<void(ServiceItem &)> &update)
{
    editProject(
        [&](const WorkspaceState &state) { return edits::updateServiceItem(state, id, update); });
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

void WorkspaceStore::addSlide()
{
    editProject(edits::addSlide);
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

void WorkspaceStore::updateSelectedSlide(const std::function<void(Slide &)> &update)
{
    editProject(
        [&](const WorkspaceState &state) { return edits::updateSelectedSlide(state, update); });
}

void WorkspaceStore::applyTemplateToSelectedSlide(const QString &templateID)
{
    editProject([&](const WorkspaceState &state) {
        return edits::applyTemplateToSelectedSlide(state, templateID);
    });
}

} // namespace quenara
