#include "ImageCache.h"

#include <QFileInfo>

#include <iterator>
#include <utility>

namespace quenara {

namespace {

QDateTime modificationTime(const SlideMedia &media)
{
    const QString fileName = ZelvoImageLoader::fileName(media);
    return fileName.isEmpty() ? QDateTime() : QFileInfo(fileName).lastModified();
}

/// Looks at some of the bytes alone: images are large, and asked for whenever one is painted.
std::size_t hashOf(const QByteArray &dataUrl)
{
    constexpr qsizetype most = 64;
    const qsizetype step = dataUrl.size() / most + 1;
    auto hash = std::size_t(dataUrl.size());
    // From the end on, since the beginnings are alike.
    for (qsizetype i = dataUrl.size() - 1; i >= 0; i -= step)
        hash = qHashMulti(hash, dataUrl.at(i));
    return hash;
}

} // namespace

QImage ImageCache::image(const SlideMedia &media, const QSize &needed)
{
    const QDateTime modified = modificationTime(media);
    const std::size_t hash = hashOf(media.dataUrl);
    const auto found = find(hash, media, modified, needed);
    if (found == m_places.end())
        return added(hash, {media.dataUrl, modified, ZelvoImageLoader::image(media, needed)});
    m_entries.splice(m_entries.begin(), m_entries, *found);
    return m_entries.front().decoded.image;
}

ImageCache::Places::iterator ImageCache::find(std::size_t hash, const SlideMedia &media,
                                              const QDateTime &modified, const QSize &needed)
{
    auto place = m_places.find(hash);
    while (place != m_places.end() && place.key() == hash) {
        const Entry &entry = **place;
        if (entry.decoded.reduction == ZelvoImageLoader::reduction(entry.decoded.fullSize, needed)
            && entry.modified == modified && areEqual(entry.dataUrl, media.dataUrl))
            return place;
        ++place;
    }
    return m_places.end();
}

QImage ImageCache::added(std::size_t hash, Entry entry)
{
    m_byteCount += entry.byteCount();
    m_entries.push_front(std::move(entry));
    m_places.insert(hash, m_entries.begin());
    while (m_byteCount > m_byteLimit && m_entries.size() > 1)
        removeLast();
    return m_entries.front().decoded.image;
}

void ImageCache::removeLast()
{
    m_byteCount -= m_entries.back().byteCount();
    m_places.remove(hashOf(m_entries.back().dataUrl), std::prev(m_entries.end()));
    m_entries.pop_back();
}

} // namespace quenara
