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
    const bool hasToAsk = m_guard.asksBeforeQuitting();
    const bool mayAsk = hasToAsk && manager.allowsInteraction(); // which waits to be allowed it
    if (mayAsk && !m_guard.mayQuit())
        return manager.cancel();
    if (hasToAsk && !mayAsk)
        m_recorder.synchronize(); // what follows may be the machine's end, too
    m_answer = mayAsk ? Answer::asked : Answer::leftToTheNextStart;
    m_answeredFor = m_store.state();
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
    m_recorder.setLeavesUnsavedWork(m_answer == Answer::leftToTheNextStart);
    m_guard.letGo();
}

} // namespace quenara
