#include "GradientFill.h"

#include "DevicePixels.h"
#include "DitherPattern.h"
#include "PaintingWorkarounds.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <vector>

namespace quenara {

namespace {

/// The pixels of a band whose colours are computed together: few enough to stay in the processor's
/// cache until the band is painted.
constexpr int bandPixels = 16'384;

/// The side of the largest slide with a gradient, in pixels, as long as the steps of its colours
/// add up without an overflow. A larger one, of which no screen shows a tenth, is of one colour.
constexpr double largestSide = 65'000;

/// Paints one row of the slide.
using PaintRow = std::function<void(int y, QRgb *row)>;

/// Red, green and blue, premultiplied, and alpha.
template<typename Number>
using Channels = std::array<Number, 4>;

/// In 1/2^24 of the step from one shade of a channel to the next.
using FineColor = Channels<quint32>;

constexpr double finest = 1U << 24U;

/// The colours of a gradient. What lies between two that can be shown is shown as either, by a
/// pattern: on average it is right, and no edge of a band of one colour is to be seen.
class Shades
{
public:
    Shades(const QColor &start, const QColor &end)
        : m_start(premultiplied(start)), m_end(premultiplied(end))
    {
        for (std::size_t i = 0; i < m_start.size(); ++i)
            m_difference.at(i) = m_end.at(i) - m_start.at(i);
        std::copy(m_start.begin(), m_start.end(), m_roughStart.begin());
        std::copy(m_difference.begin(), m_difference.end(), m_roughDifference.begin());
    }

    /// The colour at \a t, 0 at the start to 1 at the end.
    FineColor at(double t) const
    {
        FineColor color{};
        for (std::size_t i = 0; i < color.size(); ++i)
            color.at(i) = quint32(std::lround(finest * (m_start.at(i) + t * m_difference.at(i))));
        return color;
    }

    /// at(), with the last 8 bits of each channel 0, for every pixel.
    FineColor roughlyAt(float t) const
    {
        constexpr auto part = float(1U << 16U);
        const auto channel = [&](std::size_t i) {
            return quint32(qint32(part * (m_roughStart[i] + t * m_roughDifference[i]))) << 8U;
        };
        return {channel(0), channel(1), channel(2), channel(3)};
    }

    /// What is to be added to a colour, modulo 2^32, to go on by \a t.
    FineColor step(double t) const
    {
        FineColor step{};
        for (std::size_t i = 0; i < step.size(); ++i)
            step.at(i) = quint32(std::lround(finest * t * m_difference.at(i)));
        return step;
    }

private:
    static constexpr double white = 255;

    static Channels<double> premultiplied(const QColor &color)
    {
        const double alpha = color.alphaF();
        return {white * color.redF() * alpha, white * color.greenF() * alpha,
                white * color.blueF() * alpha, white * alpha};
    }

    Channels<double> m_start;
    Channels<double> m_end;
    Channels<double> m_difference{};
    Channels<float> m_roughStart{};
    Channels<float> m_roughDifference{};
};

/// How much is added to each channel of a pixel before it is cut to what can be shown.
class Thresholds
{
public:
    using Row = Channels<std::array<quint32, DitherPattern::side>>;

    /// Those of opaque colours differ from channel to channel, so that not all are lighter at the
    /// same pixels. Of premultiplied colours none may become more than alpha.
    explicit Thresholds(bool isOpaque)
    {
        struct Offset
        {
            int x = 0;
            int y = 0;
        };
        constexpr Channels<Offset> apart{{{0, 0}, {5, 11}, {11, 6}, {0, 0}}};
        constexpr quint32 unit = 1U << 16U; // that there are 256 of between two shades
        for (std::size_t y = 0; y < m_rows.size(); ++y) {
            for (std::size_t channel = 0; channel < apart.size(); ++channel) {
                const Offset offset = isOpaque ? apart.at(channel) : Offset();
                for (int x = 0; x < DitherPattern::side; ++x) {
                    const int value = DitherPattern::at(x + offset.x, int(y) + offset.y);
                    m_rows.at(y).at(channel).at(std::size_t(x)) = unit * quint32(value) + unit / 2;
                }
            }
        }
    }

    const Row &row(int y) const { return m_rows[std::size_t(y % DitherPattern::side)]; }

private:
    std::array<Row, DitherPattern::side> m_rows{};
};

/// The colour that is shown of one whose thresholds have been added.
QRgb shownColor(quint32 red, quint32 green, quint32 blue, quint32 alpha)
{
    constexpr quint32 shown = 0xff000000;
    return (alpha & shown) | ((red & shown) >> 8U) | ((green & shown) >> 16U) | (blue >> 24U);
}

/// Calls \a paint with the first pixel and the number of those of one width of the pattern after
/// the other, each small enough for the processor to compute several at once.
template<typename Paint>
void inBlocks(int width, const Paint &paint)
{
    const int whole = width - width % DitherPattern::side;
    for (int first = 0; first < whole; first += DitherPattern::side)
        paint(first, DitherPattern::side);
    paint(whole, width - whole);
}

/// How much further on the way from the start to the end each pixel lies than the one to its left
/// and the one above it.
struct Slope
{
    double right = 0;
    double down = 0;
};

Slope slopeOf(GradientDirection direction, const QSizeF &size)
{
    switch (direction) {
    case GradientDirection::vertical:
        return {.down = 1 / size.height()};
    case GradientDirection::horizontal:
        return {.right = 1 / size.width()};
    case GradientDirection::diagonal:
    case GradientDirection::radialHint:
        break;
    }
    const double square = size.width() * size.width() + size.height() * size.height();
    return {.right = size.width() / square, .down = size.height() / square};
}

PaintRow straightRows(const QSize &size, const Slope &slope, const Shades &shades,
                      const Thresholds &thresholds)
{
    const FineColor step = shades.step(slope.right);
    return [=](int y, QRgb *row) {
        Thresholds::Row added = thresholds.row(y); // to the colour of a block's first pixel
        for (std::size_t channel = 0; channel < added.size(); ++channel) {
            for (std::size_t x = 0; x < added[channel].size(); ++x)
                added[channel][x] += quint32(x) * step[channel];
        }
        const FineColor left = shades.at(slope.right / 2 + (y + 0.5) * slope.down);
        const auto &[red, green, blue, alpha] = added;
        inBlocks(size.width(), [&](int first, int pixels) {
            const auto right = quint32(first);
            const quint32 r = left[0] + right * step[0];
            const quint32 g = left[1] + right * step[1];
            const quint32 b = left[2] + right * step[2];
            const quint32 a = left[3] + right * step[3];
            for (int i = 0; i < pixels; ++i) {
                const auto x = std::size_t(i);
                row[first + i] = shownColor(r + red[x], g + green[x], b + blue[x], a + alpha[x]);
            }
        });
    };
}

/// Rows through rings around the middle of the slide.
PaintRow roundRows(const QSize &size, double endRadius, const Shades &shades,
                   const Thresholds &thresholds)
{
    const auto square = [endRadius](double pixelsFromMiddle) {
        const double way = endRadius > 0 ? pixelsFromMiddle / endRadius : 1;
        return float(std::min(1.0, way * way));
    };
    const int half = (size.width() + 1) / 2;
    std::vector<float> squares; // of the way from the middle to the pixels on its right
    squares.reserve(std::size_t(half));
    for (int x = 0; x < half; ++x)
        squares.push_back(square(x + (size.width() % 2 == 0 ? 0.5 : 0)));
    std::vector<float> along(std::size_t(size.width())); // the gradient, for a row's pixels
    return [=](int y, QRgb *row) mutable {
        const float down = square(y + 0.5 - size.height() / 2.0);
        float *const middle = along.data() + size.width() - half;
        for (int x = 0; x < half; ++x)
            middle[x] = std::sqrt(std::min(1.0F, down + squares[std::size_t(x)]));
        // The left half, without the pixel in the middle if there is one.
        std::reverse_copy(middle + size.width() % 2, along.data() + size.width(), along.data());
        const auto &[red, green, blue, alpha] = thresholds.row(y);
        inBlocks(size.width(), [&](int first, int pixels) {
            const float *const places = along.data() + first;
            for (int i = 0; i < pixels; ++i) {
                const auto [r, g, b, a] = shades.roughlyAt(places[i]);
                const auto x = std::size_t(i);
                row[first + i] = shownColor(r + red[x], g + green[x], b + blue[x], a + alpha[x]);
            }
        });
    };
}

PaintRow rowsOf(const GradientFill &fill, const QSize &size, double scale)
{
    const Shades shades(fill.start, fill.end);
    const Thresholds thresholds(fill.isOpaque());
    return fill.direction == GradientDirection::radialHint
        ? roundRows(size, fill.endRadius * scale, shades, thresholds)
        : straightRows(size, slopeOf(fill.direction, size), shades, thresholds);
}

} // namespace

bool GradientFill::isOpaque() const
{
    return start.alphaF() >= 1 && end.alphaF() >= 1;
}

/// The same for a page, on which who shows it computes each shade.
QGradient GradientFill::shading(const QRectF &slide) const
{
    QGradient gradient;
    switch (direction) {
    case GradientDirection::vertical:
        gradient = QLinearGradient(slide.topLeft(), slide.bottomLeft());
        break;
    case GradientDirection::horizontal:
        gradient = QLinearGradient(slide.topLeft(), slide.topRight());
        break;
    case GradientDirection::diagonal:
        gradient = QLinearGradient(slide.topLeft(), slide.bottomRight());
        break;
    case GradientDirection::radialHint:
        gradient = QRadialGradient(slide.center(), endRadius);
        break;
    }
    gradient.setColorAt(0, start);
    gradient.setColorAt(1, end);
    return gradient;
}

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
    if (isOnPage(painter))
        return painter.fillRect(slide, shading(slide));
    const QRect area = whole.toAlignedRect();
    const PaintRow paintRow = rowsOf(*this, area.size(), deviceScale(painter));
    const int bandHeight = std::clamp(bandPixels / area.width(), 1, visible.height());
    QImage band(area.width(), bandHeight,
                isOpaque() ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
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
