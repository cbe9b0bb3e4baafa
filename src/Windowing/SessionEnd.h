#pragma once

#include "WorkspaceState.h"

#include <QObject>

#include <cstdint>
#include <optional>

class QSessionManager;
class QWidget;

namespace quenara {

class DocumentGuard;
class SessionRecorder;
class WorkspaceStore;

/// Answers the session manager when the user logs out: whether the session may end is asked as
/// quitting asks or, where nobody may be asked, left to the next start. Either holds for the end
/// that follows alone: a session that goes on is as if nothing had been asked.
///
/// Work that cannot be left, as on a full disk, is an error: it is asked about where errors may be,
/// and else the answer is that it is not saved. A session that ends all the same finds the program
/// asking as any quit does.
class SessionEnd : public QObject
{
public:
    /// The references must outlive this.
    SessionEnd(const WorkspaceStore &store, const QWidget &operatorWindow, DocumentGuard &guard,
               SessionRecorder &recorder);

protected:
    /// Sees the application being told to end.
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    enum class Answer : std::uint8_t { asked, leftToTheNextStart };

    void answer(QSessionManager &manager);
    std::optional<Answer> answerTo(QSessionManager &manager);
    bool isKept();
    void end();

    const WorkspaceStore &m_store;
    const QWidget &m_operatorWindow;
    DocumentGuard &m_guard;
    SessionRecorder &m_recorder;
    Answer m_answer = Answer::asked;
    std::optional<WorkspaceState> m_answeredFor; ///< none while nothing was asked
};

} // namespace quenara
