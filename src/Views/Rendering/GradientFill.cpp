#include "GradientFill.h"

#include "DevicePixels.h"
#include "PaintingWorkarounds.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <vector>

namespace quenara {

namespace {

/// The pixels of a band whose colours are computed together: few enough to stay in the processor's
/// cache until the band is painted.
constexpr int bandPixels = 16'384;

/// The side of the largest slide with a gradient, in pixels. Of a larger one, a screen would show
/// one colour.
constexpr double largestSide = 1'000'000;

/// Width over height below which a diagonal gradient is painted as a vertical one.
constexpr double narrowest = 1.0 / 16;

/// Paints one row of the slide.
using PaintRow = std::function<void(int y, QRgb *row)>;

/// The colours of a gradient.
class Shades
{
public:
    Shades(const QColor &start, const QColor &end)
        : m_start(premultiplied(start)), m_end(premultiplied(end))
    {}

    /// The colour at \a t, 0 at the start to 1 at the end; premultiplied.
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

/// Rows that are all cut from one strip of colours, each \a slope pixels further on than the row
/// above.
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

/// Rows through rings of one colour each around the middle of the slide. The left half of a row
/// mirrors the right half.
PaintRow roundRows(const QSize &size, double endRadius, const Shades &shades)
{
    struct Ring
    {
        double square; ///< of the radius where the ring ends, in pixels
        QRgb color;
    };
    constexpr int shadeCount = 1024;
    std::vector<Ring> rings;
    for (int i = 0; i <= shadeCount; ++i) {
        const QRgb color = shades.at(double(i) / shadeCount);
        const double end = i < shadeCount ? std::max(0.0, endRadius) * (i + 0.5) / shadeCount
                                          : std::numeric_limits<double>::infinity();
        if (rings.empty() || rings.back().color != color)
            rings.push_back({end * end, color});
        rings.back().square = end * end;
    }
    return [size, rings = std::move(rings)](int y, QRgb *row) {
        const double fromMiddle = y + 0.5 - size.height() / 2.0;
        const double square = fromMiddle * fromMiddle;
        const double first = size.width() % 2 == 0 ? 0.5 : 0; // pixels from the middle
        QRgb *const middle = row + size.width() / 2;
        QRgb *const end = row + size.width();
        auto ring = std::upper_bound(
            rings.begin(), rings.end(), square,
            [](double value, const Ring &candidate) { return value < candidate.square; });
        for (QRgb *pixel = middle; pixel != end; ++ring) {
            const double pieceEnd = std::ceil(std::sqrt(ring->square - square) - first);
            QRgb *const next = pieceEnd < double(end - middle) ? middle + qsizetype(pieceEnd) : end;
            std::fill(pixel, std::max(pixel, next), ring->color);
            pixel = std::max(pixel, next);
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
    const QRect visible = visiblePixels(painter, slide);
    if (visible.isEmpty())
        return;
    const QRectF whole = painter.deviceTransform().mapRect(slide);
    // False for what is no number, too.
    const bool isDrawable = whole.width() < largestSide && whole.height() < largestSide;
    if (!isDrawable) {
        painter.save();
        useDevicePixels(painter);
        painter.fillRect(visible, start);
        painter.restore();
        return;
    }
    const QRect area = whole.toAlignedRect();
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
