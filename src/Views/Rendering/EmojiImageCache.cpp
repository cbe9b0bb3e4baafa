#include "EmojiImageCache.h"

#include "DevicePixels.h"
#include "PaintingWorkarounds.h"

#include <QGlyphRun>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace quenara {

namespace {

/// The pixels of \a image, with 32 bits each, that are not transparent all through.
QRect inkOfBitmap(const QImage &image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        const auto *end = row + image.width();
        const auto isInk = [](QRgb pixel) { return pixel != 0; };
        const auto *first = std::find_if(row, end, isInk);
        if (first == end)
            continue;
        const auto last =
            std::find_if(std::reverse_iterator(end), std::reverse_iterator(row), isInk);
        ink |= QRect(QPoint(int(first - row), y), QPoint(int(last.base() - row) - 1, y));
    }
    return ink;
}

/// The smallest rectangle of whole cells of \a step pixels around \a area.
QRect wholeCells(const QRect &area, int step)
{
    const auto down = [=](int at) { return int(std::floor(double(at) / step)) * step; };
    const auto up = [=](int at) { return int(std::ceil(double(at) / step)) * step; };
    const QPoint first(down(area.left()), down(area.top()));
    return {first, QPoint(up(area.right() + 1) - 1, up(area.bottom() + 1) - 1)};
}

/// The glyph is painted at a size that faces hold, or larger, and averaged: Qt would round what is
/// smaller to whole pixels. It is not the painter that is scaled, under which newer releases of Qt
/// cut a bitmap off or leave it out.
EmojiImage painted(const QRawFont &font, quint32 glyph, double scale)
{
    const int step =
        std::max(1, int(std::ceil(EmojiImage::usualSize / (font.pixelSize() * scale))));
    QRawFont sized = withOwnBitmaps(font);
    sized.setPixelSize(sized.pixelSize() * scale * step);
    const QRect covered = wholeCells(EmojiImage::reach(sized).toAlignedRect(), step);
    QImage whole(covered.size(), QImage::Format_ARGB32_Premultiplied);
    whole.fill(Qt::transparent);
    QGlyphRun run;
    run.setRawFont(sized);
    run.setGlyphIndexes({glyph});
    run.setPositions({QPointF()});
    QPainter painter(&whole);
    painter.translate(-covered.topLeft());
    painter.drawGlyphRun({}, run);
    painter.end();
    const QRect ink = inkOfBitmap(whole);
    if (ink.isEmpty())
        return {};
    const QRect seen = wholeCells(ink, step);
    const QImage image = whole.copy(seen).scaled(seen.size() / step, Qt::IgnoreAspectRatio,
                                                 Qt::SmoothTransformation);
    return {image, (covered.topLeft() + seen.topLeft()) / step, scale};
}

} // namespace

QRectF EmojiImage::reach(const QRawFont &font)
{
    const double em = font.pixelSize();
    return {-em, -2 * em, 4 * em, 3 * em};
}

void EmojiImage::draw(QPainter &painter, const QPointF &position) const
{
    if (image.isNull())
        return;
    painter.save();
    const QTransform transform = painter.deviceTransform();
    if (transform.type() <= QTransform::TxScale && deviceScale(painter) == scale) {
        // As Qt places bitmaps of glyphs.
        const QPointF place = transform.map(position);
        useDevicePixels(painter);
        painter.drawImage(QPoint(int(std::floor(place.x())), int(std::round(place.y()))) + origin,
                          image);
    } else {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(QRectF(position + QPointF(origin) / scale, QSizeF(image.size()) / scale),
                          image);
    }
    painter.restore();
}

EmojiImage EmojiImageCache::image(const QRawFont &font, quint32 glyph, double scale)
{
    scale = std::min(scale, largestSize / font.pixelSize());
    const Key key({font, glyph}, scale);
    if (const EmojiImage *known = m_images.object(key))
        return *known;
    const EmojiImage image = painted(font, glyph, scale);
    m_images.insert(key, new EmojiImage(image),
                    qsizetype(sizeof(EmojiImage)) + image.image.sizeInBytes());
    return image;
}

} // namespace quenara
