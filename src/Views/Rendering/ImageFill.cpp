#include "ImageFill.h"

#include "GaussianBlur.h"
#include "ResampledImage.h"

#include <algorithm>
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
    const double left = filledScale(fill.area);
    const QSizeF area(atLeastAPixel(QSizeF(fill.area) * left));
    const QSizeF size(decoded.image.size());
    const QSizeF whole = QSizeF(decoded.fullSize).scaled(area, Qt::KeepAspectRatioByExpanding);
    QPointF corner((area.width() - whole.width()) / 2, (area.height() - whole.height()) / 2);
    // What needs no resampling is moved by whole pixels, and stays as sharp as it is.
    if (whole.toSize() == decoded.image.size())
        corner = QPointF(corner.toPoint());
    const double sigma = fill.blur * left;
    const double margin = std::ceil(blurReach * sigma);
    const QRect wanted = QRectF(QPointF(), area)
                             .adjusted(-margin, -margin, margin, margin)
                             .intersected(QRectF(corner, whole))
                             .toAlignedRect()
        | QRectF(QPointF(), area).toRect();
    const double across = size.width() / whole.width();
    const double down = size.height() / whole.height();
    const QRectF part((wanted.left() - corner.x()) * across, (wanted.top() - corner.y()) * down,
                      wanted.width() * across, wanted.height() * down);
    const double wider = fill.area.width() / area.width();
    const double higher = fill.area.height() / area.height();
    QImage image = resampled(decoded.image, part, wanted.size());
    if (sigma > 0) {
        image.convertTo(QImage::Format_ARGB32_Premultiplied);
        image = gaussianBlurred(image, sigma);
    }
    return {image,
            {wanted.left() * wider, wanted.top() * higher, wanted.width() * wider,
             wanted.height() * higher}};
}

} // namespace quenara
