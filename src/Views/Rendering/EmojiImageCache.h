#pragma once

#include <QCache>
#include <QImage>
#include <QPainter>
#include <QPoint>
#include <QRawFont>
#include <QRectF>

#include <utility>

namespace quenara {

/// A glyph that is a bitmap instead of an outline, as it was painted at one size.
struct EmojiImage
{
    QImage image; ///< ARGB32 premultiplied, no larger than what is seen; null if nothing is
    QPoint origin; ///< of the image, in its pixels from the glyph's origin on the baseline
    double scale = 1; ///< its pixels for each unit of the font's size

    /// Pixels of the font's size at which faces hold their bitmaps, or a little more.
    static constexpr double usualSize = 128;

    /// Draws the glyph with its origin at \a position in the painter's coordinates, in which its
    /// font has its size. It stands on whole device pixels unless it is enlarged or turned.
    void draw(QPainter &painter, const QPointF &position) const;

    /// More than any glyph of \a font covers around its origin, in units of the font's size: a font
    /// does not say what its bitmaps cover.
    [[nodiscard]] static QRectF reach(const QRawFont &font);
};

/// The emoji that were painted last. Qt would paint each at any size it is asked for, and hold all
/// of them: a single one of 10,000 pixels takes 400 MB.
class EmojiImageCache
{
public:
    /// Device pixels of the font's size. A larger image shows no more.
    static constexpr double largestSize = 4 * EmojiImage::usualSize;

    static constexpr qsizetype usualByteLimit = qsizetype(32) * 1024 * 1024;

    explicit EmojiImageCache(qsizetype byteLimit = usualByteLimit) : m_images(byteLimit) {}

    /// A glyph of \a font at \a scale (device pixels for each unit of the font's size), or at the
    /// largest size if it is larger than that.
    EmojiImage image(const QRawFont &font, quint32 glyph, double scale);

    /// The size of all images; never above the limit.
    qsizetype byteCount() const { return m_images.totalCost(); }

private:
    using Key = std::pair<std::pair<QRawFont, quint32>, double>;

    QCache<Key, EmojiImage> m_images;
};

} // namespace quenara
