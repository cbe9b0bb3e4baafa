#include "GaussianBlur.h"

#include "PaintingWorkarounds.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace quenara {

namespace {

constexpr int passes = 3;
constexpr double largestSigma = 1e7;
constexpr double smallestSigma = 1.0 / 3;
constexpr double sigmaAtReducedSize = 4;
constexpr double varianceOfPixel = 1.0 / 12; // of a square with a side of one

/// A box whose outermost two weights are a fraction of the inner ones, so that repeated passes have
/// the variance of any Gaussian. A box of 2 r + 1 weights of one between two weights of a fraction
/// f has the variance (r (r + 1) (2 r + 1) / 3 + 2 f (r + 1)^2) / (2 r + 1 + 2 f).
struct Box
{
    explicit Box(double variance) : radius(std::size_t((std::sqrt(12 * variance + 1) - 1) / 2))
    {
        const auto r = double(radius);
        const double fraction =
            (2 * r + 1) * (r * (r + 1) - 3 * variance) / (6 * (variance - (r + 1) * (r + 1)));
        const double whole = 2 * r + 1 + 2 * fraction;
        innerWeight = float(1 / whole);
        outerWeight = float(fraction / whole);
    }

    std::size_t radius; ///< of the inner weights
    float innerWeight;
    float outerWeight;
};

constexpr int lineCount = 32; ///< how many lines are blurred at once, in wide registers

/// Rows or columns of one channel, at equal distances from one another.
struct Lines
{
    uchar *data;
    qsizetype distance; ///< bytes from one line to the next
    qsizetype stride; ///< bytes from one value to the next along a line
    int length;
    int count; ///< at most lineCount
};

/// The values of all lines at one place. Those beyond the count of lines are not used.
using Values = std::array<float, lineCount>;

/// \a value rounded to a multiple of 1/256, so that a sum of up to 256 values is exact. Boxes for
/// standard deviations up to 120 sum no more. Without that, sums would drift along a line, and a
/// colour could exceed the alpha that it is premultiplied with.
float rounded(float value)
{
    constexpr float unit = 1.5F * (1U << 15); // floats of this size are 1/256 apart
    return (value + unit) - unit;
}

/// One pass over \a from, which is padded by the reach of the box at both ends.
void boxPass(const std::vector<Values> &from, std::vector<Values> &to, const Box &box)
{
    const std::size_t reach = box.radius + 1;
    Values sums{};
    for (std::size_t i = 1; i < 2 * reach; ++i) {
        for (std::size_t line = 0; line < lineCount; ++line)
            sums[line] += from[i][line];
    }
    for (std::size_t i = reach; i + reach < from.size(); ++i) {
        const Values &first = from[i - reach];
        const Values &second = from[i - reach + 1];
        const Values &last = from[i + reach];
        Values &result = to[i];
        for (std::size_t line = 0; line < lineCount; ++line) {
            const float ends = first[line] + last[line];
            result[line] = rounded(sums[line] * box.innerWeight + ends * box.outerWeight);
            sums[line] += last[line] - second[line];
        }
    }
}

/// Blurs lines of one length, padded on both sides for what the passes spread beyond them.
class LineBlur
{
public:
    LineBlur(double sigma, int length)
        : m_box((sigma * sigma + varianceOfPixel) / passes),
          m_margin((passes + 1) * (m_box.radius + 1)), m_values(std::size_t(length) + 2 * m_margin),
          m_blurred(m_values.size())
    {}

    void apply(const Lines &lines)
    {
        std::fill(m_values.begin(), m_values.end(), Values{});
        eachValue(lines, [](float &value, const uchar &pixel) { value = pixel; });
        for (int pass = 0; pass < passes; ++pass) {
            boxPass(m_values, m_blurred, m_box);
            m_values.swap(m_blurred);
        }
        eachValue(lines, [](const float &value, uchar &pixel) {
            pixel = uchar(std::min(255.0F, value + 0.5F));
        });
    }

private:
    template<class Move>
    void eachValue(const Lines &lines, Move move)
    {
        for (int i = 0; i < lines.length; ++i) {
            Values &values = m_values[m_margin + std::size_t(i)];
            uchar *pixel = lines.data + i * lines.stride;
            for (int line = 0; line < lines.count; ++line)
                move(values[std::size_t(line)], pixel[line * lines.distance]);
        }
    }

    Box m_box;
    std::size_t m_margin;
    std::vector<Values> m_values;
    std::vector<Values> m_blurred;
};

/// Blurs \a image in place at its own size.
void blur(QImage &image, double sigma)
{
    const int channels = image.depth() / 8;
    const int rowLength = image.width() * channels;
    LineBlur rows(sigma, image.width());
    LineBlur columns(sigma, image.height());
    uchar *bits = image.bits();
    const qsizetype rowStride = image.bytesPerLine();
    for (int y = 0; y < image.height(); y += lineCount) {
        const int count = std::min(lineCount, image.height() - y);
        for (int channel = 0; channel < channels; ++channel)
            rows.apply({bits + y * rowStride + channel, rowStride, channels, image.width(), count});
    }
    for (int x = 0; x < rowLength; x += lineCount) {
        const int count = std::min(lineCount, rowLength - x);
        columns.apply({bits + x, 1, rowStride, image.height(), count});
    }
}

} // namespace

BlurPlan::BlurPlan(double standardDeviation)
{
    if (!(standardDeviation >= smallestSigma))
        return;
    const double whole = std::min(standardDeviation, largestSigma);
    reduction = std::max(1, int(whole / sigmaAtReducedSize));
    sigma = whole / reduction;
    reach = int(std::ceil(3 * whole));
}

QImage gaussianBlurred(const QImage &image, double sigma)
{
    if (!(sigma > 0) || image.isNull())
        return image;
    QImage blurred = image;
    releaseVectorRegisters();
    blur(blurred, sigma);
    return blurred;
}

} // namespace quenara
