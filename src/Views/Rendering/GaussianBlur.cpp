#include "GaussianBlur.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace quenara {

namespace {

constexpr int passes = 3;
constexpr double smallestSigma = 1.0 / 3;
constexpr double sigmaAtReducedSize = 4;

/// Odd box widths whose repeated passes have together the variance of the Gaussian. The variance
/// of a box of width w is (w * w - 1) / 12; the passes are split between the two odd widths around
/// the ideal one.
std::array<int, passes> boxWidths(double sigma)
{
    const double ideal = std::sqrt(12 * sigma * sigma / passes + 1);
    int lower = int(ideal);
    lower -= lower % 2 == 0 ? 1 : 0;
    const double lowerPasses =
        (12 * sigma * sigma - passes * lower * lower - 4.0 * passes * lower - 3.0 * passes)
        / (-4.0 * lower - 4);
    std::array<int, passes> widths{};
    for (int i = 0; i < passes; ++i)
        widths[std::size_t(i)] = i < std::lround(lowerPasses) ? lower : lower + 2;
    return widths;
}

/// A row or a column of one channel.
struct Line
{
    uchar *data;
    qsizetype stride;
    int length;
};

using Values = std::vector<std::uint8_t>;

/// One running-sum box pass of \a width, nothing lying outside \a from.
void boxPass(const Values &from, Values &to, int width)
{
    const std::size_t radius = std::size_t(width) / 2;
    const unsigned reciprocal = (1U << 16U) / unsigned(width) + 1;
    unsigned sum = 0;
    for (std::size_t i = 0; i < radius; ++i)
        sum += from[i];
    for (std::size_t i = 0; i < from.size(); ++i) {
        if (i + radius < from.size())
            sum += from[i + radius];
        to[i] = std::uint8_t(std::min(255U, (sum * reciprocal + (1U << 15U)) >> 16U));
        if (i >= radius)
            sum -= from[i - radius];
    }
}

/// Blurs lines of one length, with room on both sides for what the passes spread beyond it.
class LineBlur
{
public:
    LineBlur(double sigma, int length)
        : m_widths(boxWidths(sigma)),
          m_margin(std::size_t(m_widths[0] / 2 + m_widths[1] / 2 + m_widths[2] / 2)),
          m_values(std::size_t(length) + 2 * m_margin), m_blurred(m_values.size())
    {}

    void apply(const Line &line)
    {
        std::fill(m_values.begin(), m_values.end(), std::uint8_t(0));
        for (int i = 0; i < line.length; ++i)
            m_values[m_margin + std::size_t(i)] = line.data[i * line.stride];
        for (const int width : m_widths) {
            boxPass(m_values, m_blurred, width);
            m_values.swap(m_blurred);
        }
        for (int i = 0; i < line.length; ++i)
            line.data[i * line.stride] = m_values[m_margin + std::size_t(i)];
    }

private:
    std::array<int, passes> m_widths;
    std::size_t m_margin;
    Values m_values;
    Values m_blurred;
};

/// Blurs \a image in place at its own size.
void blur(QImage &image, double sigma)
{
    const int channels = image.depth() / 8;
    LineBlur rows(sigma, image.width());
    LineBlur columns(sigma, image.height());
    uchar *bits = image.bits();
    const qsizetype rowStride = image.bytesPerLine();
    for (int channel = 0; channel < channels; ++channel) {
        for (int y = 0; y < image.height(); ++y)
            rows.apply({bits + y * rowStride + channel, channels, image.width()});
        for (int x = 0; x < image.width(); ++x)
            columns.apply({bits + qsizetype(x) * channels + channel, rowStride, image.height()});
    }
}

QImage scaled(const QImage &image, const QSize &size)
{
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(image.format());
}

} // namespace

int blurReach(double sigma)
{
    return sigma < smallestSigma ? 0 : int(std::ceil(3 * std::min(sigma, largestSigma)));
}

int blurReduction(double sigma)
{
    return std::max(1, int(std::min(sigma, largestSigma) / sigmaAtReducedSize));
}

QImage gaussianBlurred(const QImage &image, double sigma)
{
    if (!(sigma >= smallestSigma) || image.isNull())
        return image;
    const double wanted = std::min(sigma, largestSigma);
    const int reduction = blurReduction(sigma);
    const QSize reduced((image.width() + reduction - 1) / reduction,
                        (image.height() + reduction - 1) / reduction);
    QImage blurred = reduction > 1 ? scaled(image, reduced) : image;
    blur(blurred, wanted / reduction);
    return reduction > 1 ? scaled(blurred, image.size()) : blurred;
}

} // namespace quenara
