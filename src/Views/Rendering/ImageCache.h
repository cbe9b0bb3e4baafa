#pragma once

#include "ImageFill.h"

#include <QDateTime>
#include <QMultiHash>

#include <cstddef>
#include <functional>
#include <list>
#include <variant>

namespace quenara {

/// Decoded images, shared by all that paint slides, at the sizes they were painted at. An image is
/// decoded and resampled again only after its file has changed or others have taken its room. That
/// there is no image is remembered, too.
class ImageCache
{
public:
    static constexpr qsizetype usualByteLimit = qsizetype(256) * 1024 * 1024;

    /// The sizes of one image that are held: more than there are views, each of which may show it
    /// twice, so that those go which it only had while it was dragged.
    static constexpr int mostSizes = 16;

    explicit ImageCache(qsizetype byteLimit = usualByteLimit) : m_byteLimit(byteLimit) {}

    ImageCache(const ImageCache &) = delete;
    ImageCache &operator=(const ImageCache &) = delete;

    /// The image of \a media as filled() makes it of what ZelvoImageLoader decodes.
    FilledImage filling(const SlideMedia &media, const ImageFill &fill);

    /// The size of all images and of the media they were decoded from. Above the limit only while
    /// one image alone is.
    qsizetype byteCount() const { return m_byteCount; }

private:
    struct Filling
    {
        ImageFill fill;
        FilledImage filled;
    };

    struct Entry
    {
        QByteArray dataUrl;
        QDateTime modified; ///< of the file, if the media names one
        std::variant<DecodedImage, Filling> held;
        quint64 lastUse = 0; ///< the greatest is that of the last one

        qsizetype byteCount() const;
    };
    using Entries = std::list<Entry>;

    /// By the hashes of what they were decoded from.
    using Places = QMultiHash<std::size_t, Entries::iterator>;

    template<class Held>
    const Held *find(const SlideMedia &media, const QDateTime &modified,
                     const std::function<bool(const Held &)> &isIt);
    void add(Entry entry);
    void addLast(Entry entry);
    void dropRarestSize(const SlideMedia &media);
    void remove(Entries::iterator entry);

    qsizetype m_byteLimit;
    qsizetype m_byteCount = 0;
    quint64 m_uses = 0;
    Entries m_entries; ///< those that go last first
    Places m_places;
};

} // namespace quenara
