#pragma once

#include "ZelvoImageLoader.h"

#include <QDateTime>
#include <QMultiHash>

#include <cstddef>
#include <list>

namespace quenara {

/// Decoded images, shared by all that paint slides. It gives what ZelvoImageLoader gives, and
/// decodes an image again only after its file has changed or others have taken its room. That there
/// is no image is remembered, too.
class ImageCache
{
public:
    static constexpr qsizetype usualByteLimit = qsizetype(256) * 1024 * 1024;

    explicit ImageCache(qsizetype byteLimit = usualByteLimit) : m_byteLimit(byteLimit) {}

    ImageCache(const ImageCache &) = delete;
    ImageCache &operator=(const ImageCache &) = delete;

    /// The image of \a media with at least \a needed pixels each way, if it has them. Null if there
    /// is none to be had.
    QImage image(const SlideMedia &media, const QSize &needed);

    /// The size of all images and of the media they were decoded from. Above the limit only while
    /// one image alone is.
    qsizetype byteCount() const { return m_byteCount; }

private:
    struct Entry
    {
        QByteArray dataUrl;
        QDateTime modified; ///< of the file, if the media names one
        DecodedImage decoded;

        qsizetype byteCount() const { return dataUrl.size() + decoded.image.sizeInBytes(); }
    };

    /// By the hashes of what they were decoded from.
    using Places = QMultiHash<std::size_t, std::list<Entry>::iterator>;

    Places::iterator find(std::size_t hash, const SlideMedia &media, const QDateTime &modified,
                          const QSize &needed);
    QImage added(std::size_t hash, Entry entry);
    void removeLast();

    qsizetype m_byteLimit;
    qsizetype m_byteCount = 0;
    std::list<Entry> m_entries; ///< the most recently used first
    Places m_places;
};

} // namespace quenara
