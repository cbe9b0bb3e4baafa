#include "SessionEnd.h"

#include "DocumentGuard.h"
#include "SessionRecorder.h"
#include "Typing.h"
#include "WorkspaceStore.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>
#include <QWidget>

#include <utility>

namespace quenara {

SessionEnd::SessionEnd(const WorkspaceStore &store, const QWidget &operatorWindow,
                       DocumentGuard &guard, SessionRecorder &recorder)
    : m_store(store), m_operatorWindow(operatorWindow), m_guard(guard), m_recorder(recorder)
{
    // Direct: the session manager waits for the answer of this call.
    connect(qApp, &QGuiApplication::commitDataRequest, this, &SessionEnd::answer,
            Qt::DirectConnection);
    qApp->installEventFilter(this);
}

/// Returning ends what interaction there was.
void SessionEnd::answer(QSessionManager &manager)
{
    endTyping();
    m_answeredFor.reset();
    const std::optional<Answer> given = answerTo(manager);
    if (!given)
        return manager.cancel();
    m_answer = *given;
    m_answeredFor = m_store.state();
}

/// None if the session is not to end.
std::optional<SessionEnd::Answer> SessionEnd::answerTo(QSessionManager &manager)
{
    if (!m_guard.asksBeforeQuitting())
        return Answer::leftToTheNextStart;
    bool mayAsk = manager.allowsInteraction(); // which waits to be allowed it
    if (!mayAsk && isKept())
        return Answer::leftToTheNextStart;
    mayAsk = mayAsk || manager.allowsErrorInteraction();
    return mayAsk && m_guard.mayQuit() ? std::optional(Answer::asked) : std::nullopt;
}

/// Whether the next start would find what is not saved; on the disk, since what follows may be the
/// machine's end, too.
bool SessionEnd::isKept()
{
    return !m_store.hasUnsavedChanges() || m_recorder.synchronize();
}

bool SessionEnd::eventFilter(QObject *object, QEvent *event)
{
    // A window that is closed already was closed by the operator.
    if (object == qApp && event->type() == QEvent::Quit && m_operatorWindow.isVisible())
        end();
    return false;
}

/// Qt closes all windows next, and ends the program if each of them lets it.
void SessionEnd::end()
{
    if (std::exchange(m_answeredFor, std::nullopt) != m_store.state())
        return;
    const bool leaves = m_answer == Answer::leftToTheNextStart;
    if (leaves && !isKept())
        return;
    m_recorder.setLeavesUnsavedWork(leaves);
    m_guard.letGo();
}

} // namespace quenara
