#include "PictureCache.h"

#include <QFileInfo>

#include <algorithm>

namespace quenara {

namespace {

/// Media of one document share their bytes, so that most comparisons end at once.
bool isSame(const QByteArray &a, const QByteArray &b)
{
    return a.constData() == b.constData() || a == b;
}

QDateTime modificationTime(const SlideMedia &media)
{
    const QString fileName = ZelvoImageLoader::fileName(media);
    return fileName.isEmpty() ? QDateTime() : QFileInfo(fileName).lastModified();
}

} // namespace

QImage PictureCache::image(const SlideMedia &media, const QSize &needed)
{
    const QDateTime modified = modificationTime(media);
    const auto found = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry &entry) {
        return entry.decoded.reduction
            == ZelvoImageLoader::reduction(entry.decoded.fullSize, needed)
            && entry.modified == modified && isSame(entry.dataUrl, media.dataUrl);
    });
    if (found == m_entries.end())
        return added({media.dataUrl, modified, ZelvoImageLoader::image(media, needed)});
    m_entries.splice(m_entries.begin(), m_entries, found);
    return found->decoded.image;
}

QImage PictureCache::added(Entry entry)
{
    m_byteCount += entry.byteCount();
    m_entries.push_front(std::move(entry));
    while (m_byteCount > m_byteLimit && m_entries.size() > 1) {
        m_byteCount -= m_entries.back().byteCount();
        m_entries.pop_back();
    }
    return m_entries.front().decoded.image;
}

QImage pictureOf(const SlideMedia &media, const QSize &needed, PictureCache *pictures)
{
    return pictures ? pictures->image(media, needed) : ZelvoImageLoader::image(media, needed).image;
}

} // namespace quenara
