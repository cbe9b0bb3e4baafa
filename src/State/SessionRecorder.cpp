#include "SessionRecorder.h"

#include "MayDiffer.h"
#include "WorkspaceStore.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace quenara {

namespace {

/// How much a journal grows at least before it is written anew, in bytes: that takes as long as
/// writing the whole project does.
constexpr qint64 leastGrowth = 64LL * 1024 * 1024;

/// A program that has just been started has nothing to bring back.
bool isWorthKeeping(const Session &session)
{
    return session.file || session.hasUnsavedChanges
        || (session.project && !session.project->serviceItems.isEmpty());
}

/// Not if a number in it is none that can be written.
bool holds(const SessionJournal &journal, const Session &session)
{
    return !mayDiffer(journal.written(), session);
}

} // namespace

SessionRecorder::SessionRecorder(const WorkspaceStore &store, const QString &folder,
                                 std::chrono::milliseconds pauseAfterFailure)
    : m_store(store), m_file(folder), m_pauseAfterFailure(pauseAfterFailure)
{
    // An edit is recorded before views paint it, which might be what ends the program; a step of
    // the show after the audience has seen it.
    connect(&store, &WorkspaceStore::projectChanged, this, &SessionRecorder::record);
    connect(&store, &WorkspaceStore::hasUnsavedChangesChanged, this,
            [this] { m_isGivenUp = false; });
    connect(&store, &WorkspaceStore::changed, this, &SessionRecorder::record);
    connect(&store, &WorkspaceStore::gestureEnded, this, &SessionRecorder::record);
}

SessionRecorder::~SessionRecorder()
{
    if (m_leavesUnsavedWork && m_store.hasUnsavedChanges()) {
        synchronize();
    } else {
        m_file.remove();
    }
}

void SessionRecorder::setWindows(const SessionWindows &windows)
{
    m_windows = windows;
    record();
}

bool SessionRecorder::synchronize()
{
    return bringToDisk(m_isGivenUp || isRemoved());
}

void SessionRecorder::setLeavesUnsavedWork(bool leaves)
{
    m_leavesUnsavedWork = leaves;
    if (leaves)
        synchronize(); // what ends the process may be the machine's end, too
}

/// The session as the journal is to hold it now.
Session SessionRecorder::present() const
{
    const WorkspaceState &state = m_store.state();
    // A gesture may lead back to what is saved, and away again.
    const bool stays = m_store.hasOpenGesture() && m_journal.written().project;
    const bool isInFile = state.currentFileURL && !state.hasUnsavedChanges && !stays;
    return {
        .projectName = state.project.name,
        .file = state.currentFileURL ? std::optional(state.currentFileURL->toLocalFile())
                                     : std::nullopt,
        .fileVersion = state.currentFileURL ? std::optional(m_store.fileVersion()) : std::nullopt,
        .hasUnsavedChanges = state.hasUnsavedChanges,
        .project = isInFile ? std::nullopt : std::optional(state.project),
        .filePlaces = isInFile ? std::optional(filePlaces()) : std::nullopt,
        .selectedServiceItemID = state.selectedServiceItemID,
        .selectedSlideID = state.selectedSlideID,
        .queuedSlideID = state.queuedSlideID,
        .liveSlideID = state.liveSlideID,
        .selectedElementID = state.selectedElementID,
        .outputMode = state.outputMode,
        .windows = m_windows,
    };
}

FilePlaces SessionRecorder::filePlaces() const
{
    const WorkspaceState &state = m_store.state();
    const auto placeOf = [this](const std::optional<QString> &id) {
        const auto position = m_store.positionOf(id);
        return position ? std::optional(std::int64_t(position->absolute)) : std::nullopt;
    };
    return {.selected = placeOf(state.selectedSlideID),
            .queued = placeOf(state.queuedSlideID),
            .live = placeOf(state.liveSlideID)};
}

void SessionRecorder::record()
{
    const Session session = present();
    const bool isEdit = mayDiffer(m_journal.written().project, session.project);
    if (!isWorthKeeping(session)) {
        forget();
    } else if (!m_isGivenUp) {
        const bool isOtherDocument =
            isEdit && !session.hasUnsavedChanges && !m_store.hasOpenGesture();
        const bool beginsAnew = !m_file.isOpen() || isOtherDocument || !m_isWhole;
        beginsAnew ? begin(session, !m_isWhole) : add(session);
    }
    if (isEdit && m_file.isOpen())
        m_isOnDisk = false;
    const bool isDue = m_isGivenUp ? mayTryAgain() : !m_isOnDisk || isRemoved();
    if (isDue && !m_store.hasOpenGesture())
        finishEdit();
    tellWhetherKeeping();
}

/// Nothing is to be kept, nor to be brought to the disk any more.
void SessionRecorder::forget()
{
    m_file.remove();
    m_journal = SessionJournal();
    m_isOnDisk = true;
    m_isGivenUp = false;
    m_isWhole = true;
}

void SessionRecorder::add(const Session &session)
{
    const QByteArrayList pieces = m_journal.add(session);
    if (!holds(m_journal, session) || (!pieces.isEmpty() && !m_file.append(pieces)))
        giveUp();
}

void SessionRecorder::begin(const Session &session, bool isDurable)
{
    SessionJournal journal;
    const QByteArrayList pieces = journal.add(session);
    if (holds(journal, session) && m_file.begin(pieces, isDurable)) {
        m_journal = std::move(journal);
        m_sizeAtBeginning = m_file.size();
        m_isWhole = true;
        m_isOnDisk = false; // its name is not there yet
    } else {
        giveUp();
    }
}

/// Posted behind all that is to be done: what was edited is painted first, and no key that was
/// pressed already waits for the disk.
void SessionRecorder::finishEdit()
{
    if (!std::exchange(m_isSynchronizationPosted, true))
        QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::LowEventPriority);
}

void SessionRecorder::customEvent(QEvent * /*event*/)
{
    m_isSynchronizationPosted = false;
    const bool hasToWait = m_store.hasOpenGesture() || (m_isGivenUp && !mayTryAgain());
    if (!hasToWait)
        bringToDisk(m_isGivenUp || isRemoved() || hasGrownLarge());
}

bool SessionRecorder::bringToDisk(bool beginsAnew)
{
    if (beginsAnew) {
        m_isGivenUp = false;
        begin(present(), true);
    }
    if (m_file.isOpen() && !m_isGivenUp) {
        m_isOnDisk = m_file.synchronize();
        if (!m_isOnDisk)
            giveUp();
    }
    tellWhetherKeeping();
    return !m_isGivenUp;
}

/// Whether the next start would not find the journal's file any more.
bool SessionRecorder::isRemoved() const
{
    return m_file.isOpen() && !m_file.isInPlace();
}

bool SessionRecorder::hasGrownLarge() const
{
    return m_file.size() > 2 * m_sizeAtBeginning + leastGrowth;
}

bool SessionRecorder::mayTryAgain() const
{
    return std::chrono::milliseconds(m_sinceFailure.elapsed()) >= m_pauseAfterFailure;
}

/// The show goes on without a journal. What it holds by then can still be brought back.
void SessionRecorder::giveUp()
{
    m_sinceFailure.start();
    m_isGivenUp = true;
    m_isWhole = false;
    if (!std::exchange(m_hasSaidSo, true))
        qInfo("Quenara could not write its recovery journal.");
    tellWhetherKeeping();
}

void SessionRecorder::tellWhetherKeeping()
{
    const bool isKeeping = !m_isGivenUp;
    if (std::exchange(m_isToldToKeep, isKeeping) != isKeeping)
        emit isKeepingChanged(isKeeping);
}

} // namespace quenara
