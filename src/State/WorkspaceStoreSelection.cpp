#include "SelectionEdits.h"
#include "WorkspaceStore.h"

namespace quenara {

void WorkspaceStore::selectSlide(const QString &id, bool queue)
{
    publish(edits::selectSlide(m_state, id, queue));
}

void WorkspaceStore::queueSlide(const std::optional<QString> &id)
{
    WorkspaceState next = m_state;
    next.queuedSlideID = id;
    publish(std::move(next));
}

void WorkspaceStore::selectElement(const std::optional<QString> &id)
{
    WorkspaceState next = m_state;
    next.selectedElementID = id;
    next.lastSelected = id ? SelectionKind::layer : SelectionKind::slide;
    publish(std::move(next));
}

void WorkspaceStore::selectServiceItem(const QString &id)
{
    WorkspaceState next = m_state;
    next.selectedServiceItemID = id;
    next.lastSelected = SelectionKind::section;
    publish(std::move(next));
}

void WorkspaceStore::keepServiceItem(const std::function<void()> &edit)
{
    const std::optional<QString> id = selectedServiceItemID();
    const std::optional<SlidePosition> slide = positionOf(selectedSlideID());
    const bool isOfSlide = slide && project().serviceItems.at(slide->item).id == id;
    edit();
    if (!isOfSlide && itemIndex(project(), id))
        selectServiceItem(*id);
}

void WorkspaceStore::goLive()
{
    publish(edits::goLive(m_state));
}

void WorkspaceStore::nextLive()
{
    publish(edits::stepLive(m_state, +1));
}

void WorkspaceStore::previousLive()
{
    publish(edits::stepLive(m_state, -1));
}

void WorkspaceStore::queueNext()
{
    publish(edits::stepQueue(m_state, +1));
}

void WorkspaceStore::queuePrevious()
{
    publish(edits::stepQueue(m_state, -1));
}

void WorkspaceStore::toggleBlackout()
{
    publish(edits::toggleOutputMode(m_state, OutputMode::blackout));
}

void WorkspaceStore::toggleLogo()
{
    publish(edits::toggleOutputMode(m_state, OutputMode::logo));
}

} // namespace quenara
