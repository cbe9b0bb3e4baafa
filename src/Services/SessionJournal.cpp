#include "SessionJournal.h"

#include "Identifier.h"
#include "JournalEntry.h"
#include "JsonChanges.h"

#include <rapidjson/writer.h>

#include <utility>

namespace quenara {

namespace {

using EntryWriter = json::Writer<rapidjson::Writer<json::ByteSink>, json::KeyOrder::declaration>;

constexpr QByteArrayView firstLine = "Quenara recovery journal 1\n";

/// The session after the first \a limit entries of \a bytes, none of which has failed then; the
/// number of those before the first that fails.
struct Replay
{
    std::optional<Session> session;
    qsizetype entryCount = 0;
    bool hasFailed = false;
};

Replay replay(QByteArrayView bytes, qsizetype limit)
{
    Replay result;
    json::DetachedMedia media;
    media.areTextsDetached = false;
    json::ChangeReader changes{json::Reader(media)};
    simdjson::dom::parser parser;
    bool hasNewMedia = false;
    const auto change = [&](QByteArrayView payload) {
        if (std::exchange(hasNewMedia, false))
            changes.setReader(json::Reader(media));
        json::Element root;
        Session &session = result.session ? *result.session : result.session.emplace();
        return parser.parse(payload.data(), std::size_t(payload.size())).get(root)
            == simdjson::SUCCESS
            && changes.apply(root, session);
    };
    while (result.entryCount < limit && !result.hasFailed) {
        const std::optional<JournalEntry> entry = takeJournalEntry(bytes);
        if (!entry)
            break;
        switch (entry->kind) {
        case JournalEntryKind::mark:
            media.mark = entry->payload.toByteArray();
            hasNewMedia = true;
            break;
        case JournalEntryKind::media:
            media.urls.append(entry->payload.toByteArray());
            hasNewMedia = true;
            break;
        case JournalEntryKind::change:
            result.hasFailed = !change(entry->payload);
            break;
        default:
            result.hasFailed = true;
        }
        result.entryCount += result.hasFailed ? 0 : 1;
    }
    return result;
}

} // namespace

SessionJournal::SessionJournal() : SessionJournal("media:" + newIdentifier().toLatin1() + ':') {}

SessionJournal::SessionJournal(const QByteArray &mark)
    : m_media(mark),
      m_beginning{firstLine.toByteArray(), journalEntryHead(JournalEntryKind::mark, mark), mark}
{}

QByteArrayList SessionJournal::add(const Session &session)
{
    if (!mayDiffer(m_written, session) && m_beginning.isEmpty())
        return {};
    EntryWriter writer(m_media);
    json::ChangeWriter(writer).write(m_written, session);
    QByteArrayList pieces = std::exchange(m_beginning, {});
    const QList<QByteArray> newMedia = m_media.takeNew();
    for (const QByteArray &media : newMedia)
        pieces << journalEntryHead(JournalEntryKind::media, media) << media;
    if (!writer.hasFailed()) {
        const QByteArray change = writer.take();
        pieces << journalEntryHead(JournalEntryKind::change, change) << change;
        m_written = session;
    }
    return pieces;
}

std::optional<Session> SessionJournal::read(QByteArrayView bytes)
{
    if (!bytes.startsWith(firstLine))
        return std::nullopt;
    bytes = bytes.sliced(firstLine.size());
    const Replay all = replay(bytes, bytes.size());
    // A change that fails half-way has spoilt the session: it is made again without that.
    return all.hasFailed ? replay(bytes, all.entryCount).session : all.session;
}

bool SessionJournal::isJournal(QByteArrayView bytes)
{
    const qsizetype size = std::min(bytes.size(), firstLine.size());
    return bytes.first(size) == firstLine.first(size);
}

} // namespace quenara
