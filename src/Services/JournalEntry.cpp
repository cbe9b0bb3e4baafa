#include "JournalEntry.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace quenara {

namespace {

constexpr qsizetype headSize =
    sizeof(std::uint32_t) + sizeof(std::uint64_t) + sizeof(JournalEntryKind);

/// Each step is a bijection of the sum and of the word: no single damaged word goes unnoticed.
std::uint64_t checksum(JournalEntryKind kind, QByteArrayView payload)
{
    constexpr std::uint64_t prime = 0x9E3779B97F4A7C15;
    constexpr int turn = 29;
    std::uint64_t sum = std::uint64_t(payload.size()) << 8U | std::uint64_t(kind);
    const auto add = [&sum](std::uint64_t word) { sum = std::rotl((sum ^ word) * prime, turn); };
    while (!payload.isEmpty()) {
        const qsizetype size = std::min(payload.size(), qsizetype(sizeof(std::uint64_t)));
        std::uint64_t word = 0;
        std::memcpy(&word, payload.data(), std::size_t(size));
        add(qFromLittleEndian(word));
        payload = payload.sliced(size);
    }
    return sum;
}

} // namespace

QByteArray journalEntryHead(JournalEntryKind kind, QByteArrayView payload)
{
    QByteArray head(headSize, Qt::Uninitialized);
    qToLittleEndian(std::uint32_t(payload.size()), head.data());
    qToLittleEndian(checksum(kind, payload), head.data() + sizeof(std::uint32_t));
    head.back() = char(kind);
    return head;
}

std::optional<JournalEntry> takeJournalEntry(QByteArrayView &bytes)
{
    if (bytes.size() < headSize)
        return std::nullopt;
    const auto size = qsizetype(qFromLittleEndian<std::uint32_t>(bytes.data()));
    const auto sum = qFromLittleEndian<std::uint64_t>(bytes.data() + sizeof(std::uint32_t));
    const auto kind = JournalEntryKind(bytes.at(headSize - 1));
    if (bytes.size() - headSize < size)
        return std::nullopt;
    const QByteArrayView payload = bytes.sliced(headSize, size);
    if (checksum(kind, payload) != sum)
        return std::nullopt;
    bytes = bytes.sliced(headSize + size);
    return JournalEntry{kind, payload};
}

} // namespace quenara
