#include "DocumentGuard.h"

#include "NameInSentence.h"
#include "Typing.h"
#include "WindowCoordinator.h"
#include "WorkspaceStore.h"

#include <QScopedValueRollback>
#include <QStringList>

namespace quenara {

DocumentGuard::DocumentGuard(WorkspaceStore &store, const WindowCoordinator &windows,
                             LeaveQuestionRunner &questions)
    : m_store(store), m_windows(windows), m_questions(questions)
{}

bool DocumentGuard::mayReplaceDocument()
{
    return mayLeave(false);
}

bool DocumentGuard::mayQuit()
{
    return m_letGo == m_store.state() || mayLeave(m_windows.isDisplayWindowOpen());
}

bool DocumentGuard::asksBeforeQuitting() const
{
    return m_letGo != m_store.state()
        && (m_store.hasUnsavedChanges() || m_windows.isDisplayWindowOpen());
}

void DocumentGuard::letGo()
{
    m_letGo = m_store.state();
}

bool DocumentGuard::mayLeave(bool endsShow)
{
    // The output windows stay alive during a question, so that a second request can come in.
    if (m_isAsking)
        return false;
    endTyping(); // closing a window or choosing from a list has not done so
    const bool isUnsaved = m_store.hasUnsavedChanges();
    if (!isUnsaved && !endsShow)
        return true;

    QStringList detail;
    if (isUnsaved)
        detail.append(QStringLiteral("Your changes are lost if you don't save them."));
    if (endsShow) {
        detail.append(QStringLiteral(
            "The display window is open: quitting closes it in front of the audience."));
    }
    const QScopedValueRollback asking(m_isAsking, true);
    const LeaveAnswer answer = m_questions.ask({
        .text = isUnsaved ? QStringLiteral("Do you want to save the changes to \u201c%1\u201d?")
                                .arg(nameInSentence(m_store.project().name))
                          : QStringLiteral("Do you want to quit during the service?"),
        .detail = detail.join(QLatin1Char('\n')),
        .offersSave = isUnsaved,
        .proceedTitle = isUnsaved ? QStringLiteral("Don't Save") : QStringLiteral("Quit"),
    });
    if (answer == LeaveAnswer::save) {
        m_store.saveProject();
        return !m_store.hasUnsavedChanges();
    }
    return answer == LeaveAnswer::proceed;
}

} // namespace quenara
