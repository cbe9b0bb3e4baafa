#include "TextOffsetMap.h"

#include <algorithm>

namespace quenara {

void TextOffsetMap::append(qsizetype count, qsizetype start, qsizetype end)
{
    m_starts.resize(m_starts.size() + count, start);
    m_ends.resize(m_ends.size() + count, end);
}

TextOffsetMap TextOffsetMap::truncated(qsizetype length, qsizetype next) const
{
    TextOffsetMap map;
    map.m_starts = m_starts.first(length);
    map.m_ends = m_ends.first(length);
    map.m_storedLength = m_storedLength;
    if (next < m_starts.size())
        map.append(1, m_starts.at(next), m_ends.at(next));
    return map;
}

qsizetype TextOffsetMap::shown(qsizetype stored) const
{
    return std::lower_bound(m_starts.begin(), m_starts.end(), stored) - m_starts.begin();
}

qsizetype TextOffsetMap::stored(qsizetype shown) const
{
    return shown < m_starts.size() ? m_starts.at(shown) : m_storedLength;
}

qsizetype TextOffsetMap::leftOutBefore(qsizetype stored) const
{
    const qsizetype next = shown(stored);
    return std::max<qsizetype>(0, stored - (next > 0 ? m_ends.at(next - 1) : 0));
}

} // namespace quenara
