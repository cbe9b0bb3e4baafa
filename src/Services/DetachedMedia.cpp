#include "DetachedMedia.h"

#include "Identifier.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace quenara::json {

namespace {

constexpr QByteArrayView scheme = "data:";

/// True for printable ASCII that stands in a JSON string without an escape.
bool isPlain(char byte)
{
    return bool(int(byte >= ' ') & int(byte <= '~') & int(byte != '"') & int(byte != '\\'));
}

/// The number of plain bytes that \a json begins with.
qsizetype plainCount(QByteArrayView json)
{
    // The compiler vectorizes a loop without an early exit.
    constexpr qsizetype block = 4096;
    qsizetype count = 0;
    bool isAllPlain = true;
    while (isAllPlain && count + block <= json.size()) {
        int plain = 1;
        for (const char byte : json.sliced(count, block))
            plain &= int(isPlain(byte));
        isAllPlain = plain != 0;
        count += isAllPlain ? block : 0;
    }
    return std::find_if_not(json.begin() + count, json.end(), isPlain) - json.begin();
}

/// True if \a start may be the start of a data URL, however short it is.
bool mayBeUrl(QByteArrayView start)
{
    return !start.isEmpty()
        && scheme.startsWith(start.first(std::min(start.size(), scheme.size())));
}

} // namespace

const QByteArray *DetachedMedia::urlBehind(std::string_view string) const
{
    if (urls.isEmpty() || !string.starts_with({mark.constData(), std::size_t(mark.size())}))
        return nullptr;
    const char *end = string.data() + string.size();
    qsizetype index = -1;
    const auto [numberEnd, error] = std::from_chars(string.data() + mark.size(), end, index);
    const bool isIndex = error == std::errc() && numberEnd == end && index >= 0;
    return isIndex && index < urls.size() ? &urls.at(index) : nullptr;
}

MediaDetacher::MediaDetacher(qsizetype leastSize) : m_leastSize(leastSize)
{
    m_media.mark = scheme.toByteArray() + newIdentifier().toLatin1() + ':';
}

void MediaDetacher::append(QByteArrayView json)
{
    while (!json.isEmpty()) {
        const qsizetype size = std::min(json.size(), m_leastSize - m_sinceBoundary);
        take(json.first(size));
        json = json.sliced(size);
        m_sinceBoundary = (m_sinceBoundary + size) % m_leastSize;
        // A URL that is large enough crosses a boundary, so that only the boundaries need be
        // searched.
        if (m_sinceBoundary == 0 && m_url.isEmpty())
            beginUrl();
    }
}

DetachedMedia MediaDetacher::finish()
{
    endUrl(false);
    return std::move(m_media);
}

void MediaDetacher::take(QByteArrayView piece)
{
    if (!m_url.isEmpty()) {
        const qsizetype count = plainCount(piece);
        m_url.append(piece.first(count));
        piece = piece.sliced(count);
        if (!piece.isEmpty())
            endUrl(piece.front() == '"');
    }
    m_media.text.append(piece);
}

/// Moves the end of the text to m_url if a string begins there that may be a data URL. If the quote
/// before it is the end of a string instead, the letter that follows makes the text invalid, and so
/// does the letter of a placeholder.
void MediaDetacher::beginUrl()
{
    QByteArray &text = m_media.text;
    qsizetype start = text.size();
    const qsizetype limit = std::max<qsizetype>(2, start - m_leastSize);
    while (start > limit && isPlain(text.at(start - 1)))
        --start;
    if (start < limit || text.at(start - 1) != '"' || text.at(start - 2) == '\\'
        || !mayBeUrl(QByteArrayView(text).sliced(start)))
        return;
    m_url = text.sliced(start);
    text.truncate(start);
}

/// Takes m_url out of the text if it turned out to be a whole string, else puts it back.
void MediaDetacher::endUrl(bool isString)
{
    QByteArray url = std::exchange(m_url, {});
    if (!isString || url.size() < m_leastSize || !url.startsWith(scheme)) {
        m_media.text.append(url);
        return;
    }
    url.squeeze();
    m_media.text.append(m_media.mark + QByteArray::number(m_media.urls.size()));
    m_media.urls.append(*m_known.insert(url));
}

} // namespace quenara::json
