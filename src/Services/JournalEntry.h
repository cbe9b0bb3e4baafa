#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace quenara {

/// What the payload of a journal's entry is.
enum class JournalEntryKind : char {
    mark = 'p', ///< what placeholders of media begin with
    media = 'm', ///< the bytes of one, which later changes name by its number
    change = 'c', ///< JSON, as JsonChanges.h has it
};

struct JournalEntry
{
    JournalEntryKind kind;
    QByteArrayView payload;
};

/// What stands before a \a payload: its size, a checksum and its kind, numbers in little-endian
/// order. At most 4 GiB.
[[nodiscard]] QByteArray journalEntryHead(JournalEntryKind kind, QByteArrayView payload);

/// Takes the next entry off \a bytes, which it refers to. Nothing if it is not whole and sound; its
/// kind may be none of those above.
[[nodiscard]] std::optional<JournalEntry> takeJournalEntry(QByteArrayView &bytes);

} // namespace quenara
