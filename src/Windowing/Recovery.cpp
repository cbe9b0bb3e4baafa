#include "Recovery.h"

#include "DocumentGuard.h"
#include "NameInSentence.h"
#include "OutputWindowController.h"
#include "SessionRecorder.h"
#include "WorkspaceStore.h"

#include <optional>
#include <utility>

namespace quenara {

Recovery::Recovery(Context context, const QString &folder)
    : m_context(std::move(context)), m_journals(leftOverJournals(folder))
{}

QList<LeftOverWork> Recovery::works() const
{
    QList<LeftOverWork> works;
    for (const LeftOverJournal &journal : m_journals) {
        works.append({.projectName = journal.session.projectName,
                      .file = journal.session.file,
                      .time = journal.time,
                      .hasUnsavedChanges = journal.session.hasUnsavedChanges});
    }
    return works;
}

QStringList Recovery::journals() const
{
    QStringList paths;
    for (const LeftOverJournal &journal : m_journals)
        paths.append(journal.path);
    return paths;
}

void Recovery::continueWith(qsizetype index)
{
    const LeftOverJournal journal = m_journals.at(index);
    const std::optional<QString> &file = journal.session.file;
    if (file && !m_context.mayOpen(QUrl::fromLocalFile(*file)))
        return;
    endAsking(); // first, so that an alert about the file stands on the window
    if (m_context.store.continueSession(journal.session)) {
        m_context.outputs.reopen(journal.session.windows);
        // From here on it is in the journal of this process.
        if (m_context.recorder.synchronize())
            journal.remove();
    }
    emit answered(true);
}

void Recovery::discard(qsizetype index)
{
    const LeftOverJournal journal = m_journals.at(index);
    const bool asks = journal.session.hasUnsavedChanges;
    if (asks) {
        const LeaveAnswer answer = m_context.questions.ask({
            .text = QStringLiteral("Do you want to discard the unsaved changes to \u201c%1\u201d?")
                        .arg(nameInSentence(journal.session.projectName)),
            .detail = QStringLiteral("They cannot be brought back."),
            .offersSave = false,
            .proceedTitle = QStringLiteral("Discard"),
        });
        if (answer != LeaveAnswer::proceed)
            return;
    }
    journal.remove();
    m_journals.removeAt(index);
    emit worksChanged();
    if (!isAsking())
        emit answered(false);
}

void Recovery::leave()
{
    if (!isAsking())
        return;
    endAsking();
    emit answered(false);
}

void Recovery::endAsking()
{
    m_journals.clear();
    emit worksChanged();
}

} // namespace quenara
