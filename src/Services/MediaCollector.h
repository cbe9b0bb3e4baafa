#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <optional>
#include <utility>

namespace quenara::json {

/// Takes large media out of texts that are written one after the other, each once however many
/// records hold it. The counterpart of DetachedMedia, by whose rule placeholders are named.
class MediaCollector
{
public:
    /// \a mark is what placeholders begin with; no text may hold it.
    explicit MediaCollector(QByteArray mark) : m_mark(std::move(mark)) {}

    /// What stands for \a media in a text; nothing if it is small enough to stand there itself.
    [[nodiscard]] std::optional<QByteArray> placeholderFor(const QByteArray &media);

    /// Those taken out since the last call, in the order of their numbers.
    [[nodiscard]] QList<QByteArray> takeNew() { return std::exchange(m_new, {}); }

private:
    struct Known
    {
        QByteArray media; ///< keeps the address from being used again
        qsizetype number;
    };

    qsizetype numberOf(const QByteArray &media);

    QByteArray m_mark;
    QHash<const char *, Known> m_byAddress;
    QHash<QByteArray, qsizetype> m_byContent;
    QList<QByteArray> m_new;
};

} // namespace quenara::json
