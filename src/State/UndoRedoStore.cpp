#include "UndoRedoStore.h"

namespace quenara {

namespace {

std::optional<ZelvoProject> exchangeLast(QList<ZelvoProject> &from, QList<ZelvoProject> &to,
                                         const ZelvoProject &current)
{
    if (from.isEmpty())
        return std::nullopt;
    to.append(current);
    return from.takeLast();
}

} // namespace

void UndoRedoStore::registerSnapshot(const ZelvoProject &project)
{
    m_undoStack.append(project);
    if (m_undoStack.size() > limit)
        m_undoStack.removeFirst();
    m_redoStack.clear();
}

std::optional<ZelvoProject> UndoRedoStore::undo(const ZelvoProject &current)
{
    return exchangeLast(m_undoStack, m_redoStack, current);
}

std::optional<ZelvoProject> UndoRedoStore::redo(const ZelvoProject &current)
{
    return exchangeLast(m_redoStack, m_undoStack, current);
}

} // namespace quenara
