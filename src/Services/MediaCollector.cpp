#include "MediaCollector.h"

namespace quenara::json {

namespace {

constexpr qsizetype leastMediaSize = 4096; // bytes

} // namespace

std::optional<QByteArray> MediaCollector::placeholderFor(const QByteArray &media)
{
    if (media.size() < leastMediaSize)
        return std::nullopt;
    return m_mark + QByteArray::number(numberOf(media));
}

/// Media are mostly told apart by their address: hashing megabytes at each edit would be slow.
qsizetype MediaCollector::numberOf(const QByteArray &media)
{
    const auto known = m_byAddress.constFind(media.constData());
    if (known != m_byAddress.cend() && known->media.size() == media.size())
        return known->number;
    const auto found = m_byContent.constFind(media);
    const qsizetype number = found == m_byContent.cend() ? m_byContent.size() : *found;
    if (found == m_byContent.cend()) {
        m_byContent.insert(media, number);
        m_new.append(media);
    }
    m_byAddress.insert(media.constData(), {media, number});
    return number;
}

} // namespace quenara::json
