#include "TextOffsetMap.h"

#include <QStringView>

#include <algorithm>

namespace quenara {

namespace {

constexpr QStringView breaks = u"\n\v\f\r\u0085\u2028\u2029";
constexpr QStringView dropped = u" \t\uFE0F";

} // namespace

TextOffsetMap::TextOffsetMap(const QString &stored, const QString &shown, bool uppercase)
    : m_length(stored.size())
{
    qsizetype end = 0;
    for (qsizetype start = 0; start < stored.size(); start = end) {
        end = start + 1;
        const QChar first = stored.at(start);
        if (first.isHighSurrogate() && end < stored.size() && stored.at(end).isLowSurrogate())
            ++end;
        if (first == u'\r' && end < stored.size() && stored.at(end) == u'\n')
            continue;
        QString character = stored.sliced(start, end - start);
        if (breaks.contains(first)) {
            character = QChar(QChar::LineSeparator);
        } else if (uppercase) {
            character = character.toUpper();
        }
        const QStringView rest = QStringView(shown).sliced(m_origins.size());
        if (dropped.contains(first) && !rest.startsWith(character))
            continue;
        const qsizetype count = std::min(character.size(), rest.size());
        m_origins.resize(m_origins.size() + count, start);
        m_ends.resize(m_ends.size() + count, end);
    }
}

qsizetype TextOffsetMap::shown(qsizetype stored) const
{
    return std::lower_bound(m_origins.begin(), m_origins.end(), stored) - m_origins.begin();
}

qsizetype TextOffsetMap::stored(qsizetype shown) const
{
    return shown < m_origins.size() ? m_origins.at(shown) : m_length;
}

qsizetype TextOffsetMap::leftOutBefore(qsizetype stored) const
{
    const qsizetype next = shown(stored);
    return std::max<qsizetype>(0, stored - (next > 0 ? m_ends.at(next - 1) : 0));
}

} // namespace quenara
