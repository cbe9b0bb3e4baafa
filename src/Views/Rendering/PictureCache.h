#pragma once

#include "ZelvoImageLoader.h"

#include <QDateTime>

#include <list>

namespace quenara {

/// Decoded pictures, shared by all that paint slides. What it gives is what ZelvoImageLoader gives;
/// a picture is decoded again only after its file has changed or others have taken its room.
class PictureCache
{
public:
    static constexpr qsizetype usualByteLimit = qsizetype(256) * 1024 * 1024;

    explicit PictureCache(qsizetype byteLimit = usualByteLimit) : m_byteLimit(byteLimit) {}

    /// The picture of \a media with at least \a needed pixels each way, if it has them.
    QImage image(const SlideMedia &media, const QSize &needed);

    /// What the pictures and the media they are found by take.
    qsizetype byteCount() const { return m_byteCount; }

private:
    struct Entry
    {
        QByteArray dataUrl;
        QDateTime modified; ///< of the file, if the media names one
        ZelvoImageLoader::Decoded decoded;

        qsizetype byteCount() const { return dataUrl.size() + decoded.image.sizeInBytes(); }
    };

    QImage added(Entry entry);

    qsizetype m_byteLimit;
    qsizetype m_byteCount = 0;
    std::list<Entry> m_entries; ///< the most recently used first
};

/// From \a pictures, or decoded afresh without them.
QImage pictureOf(const SlideMedia &media, const QSize &needed, PictureCache *pictures);

} // namespace quenara
