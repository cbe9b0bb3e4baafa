#pragma once

#include "JournalFile.h"
#include "SessionJournal.h"

#include <QElapsedTimer>
#include <QObject>

#include <chrono>

namespace quenara {

class WorkspaceStore;

/// Keeps the recovery journal of this process in step with the store: what changes is added in the
/// call that publishes it, and brought to the disk once a gesture, or an edit outside of any, has
/// ended and the events at hand are handled. A step of the show adds a few bytes and waits for no
/// disk.
///
/// The journal holds the project from its first unsaved change on, and one that has no file yet
/// from its start. A save makes it small again. Its file goes with this object.
///
/// Where it cannot be written, as on a full disk or one without locks, the show goes on without it.
/// It is tried again with a save, with the first change after that, with any change some time
/// later, and whenever all is to be on the disk.
class SessionRecorder : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::seconds usualPauseAfterFailure{10};

    /// \a store must outlive this. \a folder is that of all journals. No change before
    /// \a pauseAfterFailure is over has the journal tried again: that writes the whole project.
    SessionRecorder(const WorkspaceStore &store, const QString &folder,
                    std::chrono::milliseconds pauseAfterFailure = usualPauseAfterFailure);
    ~SessionRecorder() override;

    SessionRecorder(const SessionRecorder &) = delete;
    SessionRecorder &operator=(const SessionRecorder &) = delete;

    /// The path of this process's journal, whether it is there or not.
    const QString &journal() const { return m_file.path(); }

    void setWindows(const SessionWindows &windows);

    /// Waits until everything is on the disk, where the next start looks for it. False if it cannot
    /// be brought there.
    bool synchronize();
    /// Whether a journal with unsaved work outlasts this object, for the next start to ask about
    /// it: the process may be ended without having asked. Brings it to the disk as synchronize()
    /// does.
    void setLeavesUnsavedWork(bool leaves);

signals:
    /// What is not saved would come back after an unexpected end again, or no longer.
    void isKeepingChanged(bool isKeeping);

protected:
    void customEvent(QEvent *event) override;

private:
    Session present() const;
    FilePlaces filePlaces() const;
    void record();
    void add(const Session &session);
    void begin(const Session &session, bool isDurable);
    void forget();
    void finishEdit();
    bool bringToDisk(bool beginsAnew);
    bool isRemoved() const;
    bool hasGrownLarge() const;
    bool mayTryAgain() const;
    void giveUp();
    void tellWhetherKeeping();

    const WorkspaceStore &m_store;
    SessionWindows m_windows;
    JournalFile m_file;
    SessionJournal m_journal;
    qint64 m_sizeAtBeginning = 0;
    bool m_isOnDisk = true;
    bool m_isSynchronizationPosted = false;
    bool m_isGivenUp = false;
    QElapsedTimer m_sinceFailure; ///< runs once anything has failed
    std::chrono::milliseconds m_pauseAfterFailure;
    bool m_isWhole = true; ///< false if something may be lacking in the file, or half in it
    bool m_hasSaidSo = false;
    bool m_isToldToKeep = true;
    bool m_leavesUnsavedWork = false;
};

} // namespace quenara
