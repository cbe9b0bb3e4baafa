#pragma once

#include <QByteArray>
#include <QList>
#include <QSet>

#include <string_view>

namespace quenara::json {

/// A JSON text whose large media stand beside it, since a parser would copy every byte of them.
struct DetachedMedia
{
    QByteArray text; ///< holds a placeholder in the place of each data URL that was taken out
    QByteArray mark; ///< what a placeholder begins with, before the index of its URL
    QList<QByteArray> urls; ///< equal ones share their storage
    /// Whether texts, too, may have been taken out. If not, only media are put back, which share
    /// what they hold however often it is named.
    bool areTextsDetached = true;

    /// The URL whose placeholder \a string is. Null for any other string of the text.
    [[nodiscard]] const QByteArray *urlBehind(std::string_view string) const;
};

/// Takes the large data URLs out of a JSON text that comes in pieces, as far as they consist of
/// printable ASCII without escapes. The text that remains is valid JSON if, and only if, the whole
/// text was. Placeholders are random, so that no document holds one of its own.
class MediaDetacher
{
public:
    /// \a leastSize is the size of the smallest URL to take out, in bytes.
    explicit MediaDetacher(qsizetype leastSize = 65536);

    /// Makes room for a text of \a size bytes, which spares it being moved as it grows.
    void reserve(qsizetype size) { m_media.text.reserve(size); }
    void append(QByteArrayView json);
    /// Returns all that was appended. To be called once.
    [[nodiscard]] DetachedMedia finish();

private:
    void take(QByteArrayView piece);
    void beginUrl();
    void endUrl(bool isString);

    qsizetype m_leastSize;
    qsizetype m_sinceBoundary = 0; ///< the bytes that came since the last multiple of m_leastSize
    DetachedMedia m_media;
    QByteArray m_url; ///< the part so far of what may be a URL; empty outside of any
    QSet<QByteArray> m_known;
};

} // namespace quenara::json
