#include "ImageCache.h"

#include <QFileInfo>
#include <QList>

#include <algorithm>
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

qsizetype ImageCache::Entry::byteCount() const
{
    const auto *decoded = std::get_if<DecodedImage>(&held);
    const QImage &image = decoded ? decoded->image : std::get<Filling>(held).filled.image;
    return dataUrl.size() + image.sizeInBytes();
}

FilledImage ImageCache::filling(const SlideMedia &media, const ImageFill &fill)
{
    const QDateTime modified = modificationTime(media);
    const auto *known = find<Filling>(media, modified,
                                      [&](const Filling &filling) { return filling.fill == fill; });
    if (known)
        return known->filled;
    const auto *decoded = find<DecodedImage>(
        media, modified, [&](const DecodedImage &image) { return image.isDecodedFor(fill.area); });
    const DecodedImage image = decoded ? *decoded : ZelvoImageLoader::image(media, fill.area);
    const FilledImage result = filled(image, fill);
    if (!decoded && image.image.isNull())
        add({media.dataUrl, modified, image});
    if (result.image.isNull())
        return result;
    add({media.dataUrl, modified, Filling{fill, result}});
    dropRarestSize(media);
    // A drawing is painted anew for each size.
    const bool isOfOneSize = image.largestScale > 0 && fill.part.isNull();
    if (!decoded && !isOfOneSize && result.image.cacheKey() != image.image.cacheKey())
        addLast({media.dataUrl, modified, image});
    return result;
}

/// What is held of \a media, is of that kind and is it; null if nothing is. Brings it to the front.
template<class Held>
const Held *ImageCache::find(const SlideMedia &media, const QDateTime &modified,
                             const std::function<bool(const Held &)> &isIt)
{
    const std::size_t hash = hashOf(media.dataUrl);
    for (auto place = m_places.find(hash); place != m_places.end() && place.key() == hash;
         ++place) {
        Entry &entry = **place;
        const Held *held = std::get_if<Held>(&entry.held);
        if (held && isIt(*held) && entry.modified == modified
            && areEqual(entry.dataUrl, media.dataUrl)) {
            m_entries.splice(m_entries.begin(), m_entries, *place);
            entry.lastUse = ++m_uses;
            return held;
        }
    }
    return nullptr;
}

void ImageCache::dropRarestSize(const SlideMedia &media)
{
    QList<Entries::iterator> sizes;
    const auto [first, last] = m_places.equal_range(hashOf(media.dataUrl));
    std::copy_if(first, last, std::back_inserter(sizes), [&](Entries::iterator entry) {
        return std::holds_alternative<Filling>(entry->held)
            && areEqual(entry->dataUrl, media.dataUrl);
    });
    if (sizes.size() > mostSizes) {
        remove(*std::min_element(sizes.begin(), sizes.end(),
                                 [](Entries::iterator one, Entries::iterator other) {
                                     return one->lastUse < other->lastUse;
                                 }));
    }
}

void ImageCache::add(Entry entry)
{
    entry.lastUse = ++m_uses;
    const std::size_t hash = hashOf(entry.dataUrl);
    m_byteCount += entry.byteCount();
    m_places.insert(hash, m_entries.insert(m_entries.begin(), std::move(entry)));
    while (m_byteCount > m_byteLimit && m_entries.size() > 1)
        remove(std::prev(m_entries.end()));
}

/// If there is room without it.
void ImageCache::addLast(Entry entry)
{
    if (m_byteCount + entry.byteCount() > m_byteLimit)
        return;
    add(std::move(entry));
    m_entries.splice(m_entries.end(), m_entries, m_entries.begin());
}

void ImageCache::remove(Entries::iterator entry)
{
    m_byteCount -= entry->byteCount();
    m_places.remove(hashOf(entry->dataUrl), entry);
    m_entries.erase(entry);
}

} // namespace quenara
