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

EmojiImage painted(const QRawFont &font, quint32 glyph, double scale)
{
    const QRectF reach = EmojiImage::reach(font);
    const QRect covered = QRectF(reach.topLeft() * scale, reach.size() * scale).toAlignedRect();
    QImage whole(covered.size(), QImage::Format_ARGB32_Premultiplied);
    whole.fill(Qt::transparent);
    QGlyphRun run;
    run.setRawFont(withOwnBitmaps(font));
    run.setGlyphIndexes({glyph});
    run.setPositions({QPointF()});
    QPainter painter(&whole);
    painter.translate(-covered.topLeft());
    painter.scale(scale, scale);
    painter.drawGlyphRun({}, run);
    painter.end();
    const QRect ink = inkOfBitmap(whole);
    if (ink.isEmpty())
        return {};
    return {whole.copy(ink), covered.topLeft() + ink.topLeft(), scale};
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
