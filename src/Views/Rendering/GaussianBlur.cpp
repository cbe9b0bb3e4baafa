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

/// Odd box widths whose repeated passes have together the variance of the Gaussian. The variance
/// of a box of width w is (w * w - 1) / 12; the passes are split between the two odd widths around
/// the ideal one.
std::array<int, passes> boxWidths(double sigma)
{
    const double ideal = std::sqrt(12 * sigma * sigma / passes + 1);
    int lower = int(ideal);
    lower -= lower % 2 == 0 ? 1 : 0;
    const double lowerPasses
        = (12 * sigma * sigma - passes * lower * lower - 4.0 * passes * lower - 3.0 * passes)
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

/// One running-sum box pass of \a width over \a line; \a copy is room for a line's values.
void boxPass(const Line &line, int width, std::vector<std::uint8_t> &copy)
{
    for (int i = 0; i < line.length; ++i)
        copy[std::size_t(i)] = line.data[i * line.stride];
    const int radius = width / 2;
    const unsigned reciprocal = (1U << 16U) / unsigned(width) + 1;
    unsigned sum = 0;
    for (int i = 0; i < std::min(radius, line.length); ++i)
        sum += copy[std::size_t(i)];
    for (int i = 0; i < line.length; ++i) {
        if (i + radius < line.length)
            sum += copy[std::size_t(i + radius)];
        line.data[i * line.stride] = uchar(std::min(255U, (sum * reciprocal) >> 16U));
        if (i - radius >= 0)
            sum -= copy[std::size_t(i - radius)];
    }
}

void blurLine(const Line &line, const std::array<int, passes> &widths,
              std::vector<std::uint8_t> &copy)
{
    for (const int width : widths)
        boxPass(line, width, copy);
}

} // namespace

int blurReach(double sigma)
{
    return sigma < smallestSigma ? 0 : int(std::ceil(3 * sigma));
}

QImage gaussianBlurred(const QImage &image, double sigma)
{
    if (sigma < smallestSigma || image.isNull())
        return image;
    QImage blurred = image;
    const int channels = blurred.depth() / 8;
    const auto widths = boxWidths(sigma);
    std::vector<std::uint8_t> copy(std::size_t(std::max(blurred.width(), blurred.height())));
    uchar *bits = blurred.bits();
    for (int channel = 0; channel < channels; ++channel) {
        for (int y = 0; y < blurred.height(); ++y) {
            blurLine({bits + y * blurred.bytesPerLine() + channel, channels, blurred.width()},
                     widths, copy);
        }
        for (int x = 0; x < blurred.width(); ++x) {
            blurLine({bits + qsizetype(x) * channels + channel, blurred.bytesPerLine(),
                      blurred.height()},
                     widths, copy);
        }
    }
    return blurred;
}

} // namespace quenara
