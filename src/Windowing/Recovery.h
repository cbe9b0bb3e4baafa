#pragma once

#include "JournalFile.h"
#include "RecoverySheet.h"

#include <QObject>
#include <QStringList>
#include <QUrl>

#include <functional>

namespace quenara {

class LeaveQuestionRunner;
class OutputWindowController;
class SessionRecorder;
class WorkspaceStore;

/// What programs that ended unexpectedly have left in the folder of journals, and what becomes of
/// it. The operator window asks, while there is any.
class Recovery : public QObject
{
    Q_OBJECT

public:
    struct Context
    {
        WorkspaceStore &store;
        OutputWindowController &outputs;
        SessionRecorder &recorder;
        LeaveQuestionRunner &questions;
        /// Whether the operator wants that file opened, which another program may have open.
        std::function<bool(const QUrl &file)> mayOpen = [](const QUrl & /*file*/) { return true; };
    };

    /// The references must outlive this. Looks into \a folder.
    Recovery(Context context, const QString &folder);

    bool isAsking() const { return !m_journals.isEmpty(); }
    /// Newest first.
    QList<LeftOverWork> works() const;
    /// The paths of the journals with them.
    QStringList journals() const;

    // By the index into works().

    /// Brings the work and the show back, which ends the asking; the other works are kept for the
    /// next start. So is this one, if its file cannot be read. Asks first if another program has
    /// that file open, and goes on asking if it is not to be opened then.
    void continueWith(qsizetype index);
    /// Asks once more if something is unsaved.
    void discard(qsizetype index);

    /// Ends the asking: what is left is kept for the next start.
    void leave();

signals:
    void worksChanged();
    /// The asking has ended, with the choice to go on with one of the works or with none.
    void answered(bool isContinued);

private:
    void endAsking();

    Context m_context;
    QList<LeftOverJournal> m_journals;
};

} // namespace quenara
