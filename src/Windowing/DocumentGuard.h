#pragma once

#include "WorkspaceState.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace quenara {

class WindowCoordinator;
class WorkspaceStore;

/// What the operator is asked before something is left behind.
struct LeaveQuestion
{
    QString text;
    QString detail; ///< what happens if the operator goes on; may have several lines
    bool offersSave = false;
    QString proceedTitle; ///< of the button that goes on all the same

    bool operator==(const LeaveQuestion &) const = default;
};

enum class LeaveAnswer : std::uint8_t { save, proceed, cancel };

/// Puts a question to the operator.
class LeaveQuestionRunner
{
public:
    virtual ~LeaveQuestionRunner() = default;

    /// Returns once the operator has answered.
    virtual LeaveAnswer ask(const LeaveQuestion &question) = 0;
};

/// Stands between the operator and whatever would drop unsaved changes or end the service: each
/// function asks what there is to ask, in one question, saves if that is the answer, and says
/// whether to go on. A cancelled or failed save is a no.
class DocumentGuard
{
public:
    DocumentGuard(WorkspaceStore &store, const WindowCoordinator &windows,
                  LeaveQuestionRunner &questions);

    [[nodiscard]] bool mayReplaceDocument();
    [[nodiscard]] bool mayQuit();

    /// Whether mayQuit() would ask now.
    [[nodiscard]] bool asksBeforeQuitting() const;

    /// Nothing is asked before quitting as long as everything stays as it is now.
    void letGo();

private:
    bool mayLeave(bool endsShow);

    WorkspaceStore &m_store;
    const WindowCoordinator &m_windows;
    LeaveQuestionRunner &m_questions;
    std::optional<WorkspaceState> m_letGo;
    bool m_isAsking = false;
};

} // namespace quenara
