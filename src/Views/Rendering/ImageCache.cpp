#include "ImageCache.h"

#include <QFileInfo>

#include <algorithm>

namespace quenara {

namespace {

QDateTime modificationTime(const SlideMedia &media)
{
    const QString fileName = ZelvoImageLoader::fileName(media);
    return fileName.isEmpty() ? QDateTime() : QFileInfo(fileName).lastModified();
}

} // namespace

QImage ImageCache::image(const SlideMedia &media, const QSize &needed)
{
    const QDateTime modified = modificationTime(media);
    const auto found = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry &entry) {
        return entry.decoded.reduction
            == ZelvoImageLoader::reduction(entry.decoded.fullSize, needed)
            && entry.modified == modified && areEqual(entry.dataUrl, media.dataUrl);
    });
    if (found == m_entries.end())
        return added({media.dataUrl, modified, ZelvoImageLoader::image(media, needed)});
    m_entries.splice(m_entries.begin(), m_entries, found);
    return found->decoded.image;
}

QImage ImageCache::added(Entry entry)
{
    m_byteCount += entry.byteCount();
    m_entries.push_front(std::move(entry));
    while (m_byteCount > m_byteLimit && m_entries.size() > 1) {
        m_byteCount -= m_entries.back().byteCount();
        m_entries.pop_back();
    }
    return m_entries.front().decoded.image;
}

} // namespace quenara
