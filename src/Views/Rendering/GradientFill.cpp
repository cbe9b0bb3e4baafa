#include "GradientFill.h"

#include "DevicePixels.h"
#include "VectorRegisters.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <vector>

namespace quenara {

namespace {

/// That are prepared at once, and leave the cache only to be painted.
constexpr int bandPixels = 16'384;

/// Of pixels that are computed side by side in wide registers.
constexpr std::size_t blockLength = 32;

/// Width over height below which a slide's diagonal is as good as upright.
constexpr double narrowest = 1.0 / 16;

/// Paints one row of the slide.
using PaintRow = std::function<void(int y, QRgb *row)>;

/// The colours between two.
class Shades
{
public:
    Shades(const QColor &start, const QColor &end)
        : m_start(premultiplied(start)), m_end(premultiplied(end))
    {}

    /// At the share \a t of the way, premultiplied.
    QRgb at(double t) const
    {
        const auto share = float(std::clamp(t, 0.0, 1.0));
        const auto mixed = [&](std::size_t channel) {
            const float start = m_start.at(channel);
            return qRound(start + share * (m_end.at(channel) - start));
        };
        return qRgba(mixed(0), mixed(1), mixed(2), mixed(3));
    }

private:
    using Channels = std::array<float, 4>; ///< red, green, blue, alpha; 0 to 255

    static Channels premultiplied(const QColor &color)
    {
        const auto alpha = float(color.alphaF());
        return {255 * float(color.redF()) * alpha, 255 * float(color.greenF()) * alpha,
                255 * float(color.blueF()) * alpha, 255 * alpha};
    }

    Channels m_start;
    Channels m_end;
};

PaintRow uprightRows(const QSize &size, const Shades &shades)
{
    return [=](int y, QRgb *row) {
        std::fill_n(row, size.width(), shades.at((y + 0.5) / size.height()));
    };
}

/// Every row is a part of one and the same strip, which begins \a slope pixels further with each.
PaintRow slantedRows(const QSize &size, double slope, const Shades &shades)
{
    const double length = size.width() + size.height() * slope;
    std::vector<QRgb> strip(std::size_t(std::ceil(length)) + 1);
    for (std::size_t i = 0; i < strip.size(); ++i)
        strip[i] = shades.at((double(i) + (1 + slope) / 2) / length);
    return [size, slope, strip = std::move(strip)](int y, QRgb *row) {
        std::copy_n(strip.begin() + std::lround(y * slope), size.width(), row);
    };
}

/// The left half of each row is the reflection of the right one.
PaintRow roundRows(const QSize &size, double endRadius, const Shades &shades)
{
    constexpr int ringCount = 1024;
    std::vector<QRgb> rings(ringCount + 1);
    for (int i = 0; i <= ringCount; ++i)
        rings[std::size_t(i)] = shades.at(double(i) / ringCount);
    const double perPixel = endRadius > 0 ? ringCount / endRadius : ringCount;
    return [size, rings = std::move(rings), perPixel](int y, QRgb *row) {
        const double fromMiddle = (y + 0.5 - size.height() / 2.0) * perPixel;
        const auto square = float(fromMiddle * fromMiddle);
        QRgb *const end = row + size.width();
        QRgb *pixel = row + size.width() / 2;
        float distance = size.width() % 2 == 0 ? 0.5F : 0;
        std::array<int, blockLength> block{};
        while (pixel != end) {
            for (std::size_t i = 0; i < blockLength; ++i) {
                const float x = (distance + float(i)) * float(perPixel);
                const float ring = std::sqrt(x * x + square) + 0.5F;
                block[i] = int(std::min(float(ringCount), ring));
            }
            const auto count = std::min<std::size_t>(blockLength, std::size_t(end - pixel));
            for (std::size_t i = 0; i < count; ++i)
                *pixel++ = rings[std::size_t(block[i])];
            distance += blockLength;
        }
        std::reverse_copy(row + (size.width() + 1) / 2, end, row);
    };
}

PaintRow rowsOf(const GradientFill &fill, const QSize &size, double scale)
{
    const Shades shades(fill.start, fill.end);
    switch (fill.direction) {
    case GradientDirection::vertical:
        return uprightRows(size, shades);
    case GradientDirection::horizontal:
        return slantedRows(size, 0, shades);
    case GradientDirection::diagonal:
        return size.width() < narrowest * size.height()
            ? uprightRows(size, shades)
            : slantedRows(size, double(size.height()) / size.width(), shades);
    case GradientDirection::radialHint:
        break;
    }
    return roundRows(size, fill.endRadius * scale, shades);
}

} // namespace

void GradientFill::paint(QPainter &painter, const QRectF &slide) const
{
    const QTransform toDevice = painter.deviceTransform();
    const QRect area = toDevice.mapRect(slide).toAlignedRect();
    const QRect visible = area.intersected(visibleDeviceRect(painter).toAlignedRect());
    if (visible.isEmpty())
        return;
    const PaintRow paintRow = rowsOf(*this, area.size(), deviceScale(painter));
    const int bandHeight = std::clamp(bandPixels / area.width(), 1, visible.height());
    const bool isOpaque = start.alphaF() >= 1 && end.alphaF() >= 1;
    QImage band(area.width(), bandHeight,
                isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    if (band.isNull())
        return;
    painter.save();
    useDevicePixels(painter);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    for (int top = visible.top(); top <= visible.bottom(); top += bandHeight) {
        releaseVectorRegisters();
        const int height = std::min(bandHeight, visible.bottom() + 1 - top);
        for (int y = 0; y < height; ++y)
            paintRow(top + y - area.top(), reinterpret_cast<QRgb *>(band.scanLine(y)));
        painter.drawImage(QPoint(area.left(), top), band, QRect(0, 0, area.width(), height));
    }
    painter.restore();
}

} // namespace quenara
