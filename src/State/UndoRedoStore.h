#pragma once

#include "ProjectModels.h"

#include <QList>

#include <optional>

namespace quenara {

/// The undo and redo history of the open document as whole projects, which share with each other
/// what the edits between them did not touch.
class UndoRedoStore
{
public:
    /// The most snapshots that registerSnapshot() leaves to undo.
    static constexpr qsizetype limit = 60;

    /// Records \a project, the state before an edit, and drops everything that could be redone.
    void registerSnapshot(const ZelvoProject &project);

    /// The project to show after an undo, \a current going to the redo stack; nothing, and nothing
    /// changed, when there is nothing to undo.
    [[nodiscard]] std::optional<ZelvoProject> undo(const ZelvoProject &current);
    [[nodiscard]] std::optional<ZelvoProject> redo(const ZelvoProject &current);

    /// Oldest first. Undo and redo move snapshots between the stacks without trimming either.
    const QList<ZelvoProject> &undoStack() const { return m_undoStack; }
    const QList<ZelvoProject> &redoStack() const { return m_redoStack; }

private:
    QList<ZelvoProject> m_undoStack;
    QList<ZelvoProject> m_redoStack;
};

} // namespace quenara
