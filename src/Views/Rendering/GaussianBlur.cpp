#include "GaussianBlur.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace quenara {

namespace {

constexpr int passes = 3;
constexpr double largestSigma = 1e7;
constexpr double smallestSigma = 1.0 / 3;
constexpr double sigmaAtReducedSize = 4;
constexpr double varianceOfPixel = 1.0 / 12; // of the square that a value stands for

/// A box whose outermost two weights are a fraction of the inner ones, so that repeated passes have
/// the variance of any Gaussian. A box of 2 r + 1 weights of one between two weights of a fraction
/// f has the variance (r (r + 1) (2 r + 1) / 3 + 2 f (r + 1)^2) / (2 r + 1 + 2 f).
struct Box
{
    static constexpr unsigned shift = 16;

    explicit Box(double variance) : radius(std::size_t((std::sqrt(12 * variance + 1) - 1) / 2))
    {
        const auto r = double(radius);
        const double fraction =
            (2 * r + 1) * (r * (r + 1) - 3 * variance) / (6 * (variance - (r + 1) * (r + 1)));
        const auto whole = double(1U << shift);
        outerWeight = unsigned(std::lround(whole * fraction / (2 * r + 1 + 2 * fraction)));
        innerWeight = unsigned(std::ceil((whole - 2 * double(outerWeight)) / (2 * r + 1)));
    }

    std::size_t radius; ///< of the inner weights
    unsigned innerWeight;
    unsigned outerWeight;
};

/// A row or a column of one channel.
struct Line
{
    uchar *data;
    qsizetype stride;
    int length;
};

using Values = std::vector<std::uint8_t>;

/// One pass over \a from, which holds room for the box at both its ends.
void boxPass(const Values &from, Values &to, const Box &box)
{
    const std::size_t reach = box.radius + 1;
    constexpr unsigned half = 1U << (Box::shift - 1);
    unsigned sum = 0;
    for (std::size_t i = 1; i < 2 * reach; ++i)
        sum += from[i];
    for (std::size_t i = reach; i + reach < from.size(); ++i) {
        const unsigned ends = unsigned(from[i - reach]) + from[i + reach];
        const unsigned weighted = sum * box.innerWeight + ends * box.outerWeight;
        to[i] = std::uint8_t(std::min(255U, (weighted + half) >> Box::shift));
        sum += from[i + reach];
        sum -= from[i - reach + 1];
    }
}

/// Blurs lines of one length, with room on both sides for what the passes spread beyond it.
class LineBlur
{
public:
    LineBlur(double sigma, int length)
        : m_box((sigma * sigma + varianceOfPixel) / passes),
          m_margin((passes + 1) * (m_box.radius + 1)), m_values(std::size_t(length) + 2 * m_margin),
          m_blurred(m_values.size())
    {}

    void apply(const Line &line)
    {
        std::fill(m_values.begin(), m_values.end(), std::uint8_t(0));
        for (int i = 0; i < line.length; ++i)
            m_values[m_margin + std::size_t(i)] = line.data[i * line.stride];
        for (int pass = 0; pass < passes; ++pass) {
            boxPass(m_values, m_blurred, m_box);
            m_values.swap(m_blurred);
        }
        for (int i = 0; i < line.length; ++i)
            line.data[i * line.stride] = m_values[m_margin + std::size_t(i)];
    }

private:
    Box m_box;
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
    blur(blurred, sigma);
    return blurred;
}

} // namespace quenara
