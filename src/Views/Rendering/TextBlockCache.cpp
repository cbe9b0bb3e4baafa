#include "TextBlockCache.h"

#include <algorithm>

namespace quenara {

namespace {

/// More than the texts of the slides that all windows show at once, thumbnails included.
constexpr std::size_t blockMaximum = 64;

} // namespace

std::shared_ptr<TextBlock> TextBlockCache::block(const TextElementProperties &text,
                                                 const QSizeF &size, const TextLimits &limits)
{
    const Key key{size, text, limits};
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry &entry) { return entry.key == key; });
    if (found == m_entries.end()) {
        m_entries.push_front({key, std::make_shared<TextBlock>(text, size, limits)});
        if (m_entries.size() > blockMaximum)
            m_entries.pop_back();
    } else {
        m_entries.splice(m_entries.begin(), m_entries, found);
    }
    return m_entries.front().block;
}

} // namespace quenara
