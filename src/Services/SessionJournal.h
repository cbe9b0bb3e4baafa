#pragma once

#include "MediaCollector.h"
#include "Session.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QByteArrayView>

#include <optional>

namespace quenara {

/// Writes the recovery journal, from whose bytes the last session can be read back however they
/// end: a first line, then entries. Each has its size and a checksum; it is a session's change
/// since the entry before (JsonChanges.h), the first one since Session(), or media that later
/// changes name.
class SessionJournal
{
public:
    SessionJournal();

    /// What the bytes so far hold.
    const Session &written() const { return m_written; }

    /// The bytes to add, in pieces, so that they hold \a session. None if it shares all that it
    /// holds with the one written last, or if a number in it is not finite.
    [[nodiscard]] QByteArrayList add(const Session &session);

    /// The session of the last entry up to which \a bytes are whole and sound; nothing without any
    /// entry. Throws std::bad_alloc.
    [[nodiscard]] static std::optional<Session> read(QByteArrayView bytes);

    /// Whether \a bytes are the beginning of a journal, or of its beginning.
    [[nodiscard]] static bool isJournal(QByteArrayView bytes);

private:
    explicit SessionJournal(const QByteArray &mark);

    Session m_written;
    json::MediaCollector m_media;
    QByteArrayList m_beginning; ///< until it has been handed out
};

} // namespace quenara
