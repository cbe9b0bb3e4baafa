#include "ImageFill.h"

#include "GaussianBlur.h"
#include "ResampledImage.h"

#include <cmath>

namespace quenara {

namespace {

constexpr double blurReach = 3; // standard deviations, beyond which nothing is seen

} // namespace

QRectF FilledImage::placeIn(const QRectF &area, const ImageFill &fill) const
{
    const double across = area.width() / fill.area.width();
    const double down = area.height() / fill.area.height();
    return {area.left() + place.left() * across, area.top() + place.top() * down,
            place.width() * across, place.height() * down};
}

FilledImage filled(const DecodedImage &decoded, const ImageFill &fill)
{
    if (decoded.image.isNull() || fill.area.isEmpty())
        return {};
    const QSizeF size(decoded.image.size());
    QSizeF whole = QSizeF(decoded.fullSize).scaled(fill.area, Qt::KeepAspectRatioByExpanding);
    // What needs no resampling is moved by whole pixels, and stays as sharp as it is.
    const bool isCopied = whole.toSize() == decoded.image.size();
    if (isCopied)
        whole = size;
    QPointF corner((fill.area.width() - whole.width()) / 2,
                   (fill.area.height() - whole.height()) / 2);
    if (isCopied)
        corner = QPointF(corner.toPoint());
    const QRect part = fill.part.isNull() ? QRect(QPoint(), fill.area) : fill.part;
    const double margin = std::ceil(blurReach * fill.blur);
    const QRect wanted = QRectF(part)
                             .adjusted(-margin, -margin, margin, margin)
                             .intersected(QRectF(corner, whole))
                             .toAlignedRect()
        | part;
    const double across = size.width() / whole.width();
    const double down = size.height() / whole.height();
    const QRectF source((wanted.left() - corner.x()) * across, (wanted.top() - corner.y()) * down,
                        wanted.width() * across, wanted.height() * down);
    const double left = filledScale(wanted.size());
    QImage image = resampled(decoded.image, source, atLeastAPixel(QSizeF(wanted.size()) * left));
    if (fill.blur > 0) {
        image.convertTo(QImage::Format_ARGB32_Premultiplied);
        image = gaussianBlurred(image, fill.blur * left);
    }
    return {image, wanted};
}

} // namespace quenara
