#include "ResampledImage.h"

#include "PaintingWorkarounds.h"

#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace quenara {

namespace {

constexpr double lobes = 2;
constexpr std::size_t channels = 4;
constexpr std::size_t alphaChannel = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? 3 : 0;
constexpr float largestShade = 255;

using Pixel = std::array<float, channels>;
using Row = std::vector<Pixel>;

double lanczos(double x)
{
    if (std::abs(x) >= lobes)
        return 0;
    const double angle = M_PI * x;
    return x == 0 ? 1 : lobes * std::sin(angle) * std::sin(angle / lobes) / (angle * angle);
}

/// What each pixel of a new line is made of: how much of which pixels, one after the other, of the
/// old one.
class LineFilter
{
public:
    /// Of the part of \a length pixels from \a start on of a line that has \a available.
    LineFilter(double start, double length, int available, int size)
    {
        const double step = length / size;
        const double reach = lobes * std::max(1.0, step);
        m_first.reserve(std::size_t(size));
        m_end.reserve(std::size_t(size));
        for (int i = 0; i < size; ++i) {
            const double middle = std::clamp(start + (i + 0.5) * step, 0.0, double(available));
            const int first = std::max(0, int(std::floor(middle - reach)));
            const int last = std::min(available - 1, int(std::ceil(middle + reach)));
            m_first.push_back(first);
            addWeights(first, last, middle, std::max(1.0, step));
            m_end.push_back(m_weights.size());
        }
    }

    int size() const { return int(m_first.size()); }
    int first(int i) const { return m_first[std::size_t(i)]; }
    int count(int i) const { return int(m_end[std::size_t(i)] - begin(i)); }
    const float *weights(int i) const { return m_weights.data() + begin(i); }
    int largestCount() const
    {
        int largest = 0;
        for (int i = 0; i < size(); ++i)
            largest = std::max(largest, count(i));
        return largest;
    }

private:
    std::size_t begin(int i) const { return i > 0 ? m_end[std::size_t(i) - 1] : 0; }

    /// They add up to one.
    void addWeights(int first, int last, double middle, double width)
    {
        double sum = 0;
        for (int i = first; i <= last; ++i)
            sum += lanczos((i + 0.5 - middle) / width);
        for (int i = first; i <= last; ++i)
            m_weights.push_back(float(lanczos((i + 0.5 - middle) / width) / sum));
    }

    std::vector<int> m_first;
    std::vector<std::size_t> m_end; ///< in the weights
    std::vector<float> m_weights;
};

/// Rows of an image with their new width, made when they are first asked for, from the top down.
class ResampledRows
{
public:
    ResampledRows(const QImage &image, const LineFilter &columns, int kept)
        : m_image(image), m_columns(columns), m_first(columns.first(0)),
          m_old(std::size_t(columns.first(columns.size() - 1) + columns.count(columns.size() - 1)
                            - m_first)),
          m_rows(std::size_t(kept), Row(std::size_t(columns.size())))
    {}

    /// The row at \a y, which must not lie more than what is kept above the lowest so far.
    const Row &row(int y)
    {
        m_next = std::max(m_next, y + 1 - int(m_rows.size()));
        for (; m_next <= y; ++m_next)
            make(m_next);
        return m_rows[std::size_t(y) % m_rows.size()];
    }

private:
    void make(int y)
    {
        const uchar *byte = m_image.constScanLine(y) + channels * std::size_t(m_first);
        for (Pixel &pixel : m_old) {
            for (std::size_t i = 0; i < channels; ++i)
                pixel[i] = byte[i];
            byte += channels;
        }
        Row &row = m_rows[std::size_t(y) % m_rows.size()];
        for (int x = 0; x < m_columns.size(); ++x) {
            const Pixel *old = m_old.data() + (m_columns.first(x) - m_first);
            const float *weights = m_columns.weights(x);
            const int count = m_columns.count(x);
            Pixel sum{};
            for (int tap = 0; tap < count; ++tap) {
                for (std::size_t i = 0; i < channels; ++i)
                    sum[i] += weights[tap] * old[tap][i];
            }
            row[std::size_t(x)] = sum;
        }
    }

    const QImage &m_image;
    const LineFilter &m_columns;
    int m_first; ///< column of the image that is used
    Row m_old; ///< from there to the last that is used
    std::vector<Row> m_rows;
    int m_next = 0;
};

/// The filter overshoots beside edges; no colour may exceed the alpha that it is multiplied with.
void write(const Row &row, uchar *byte)
{
    for (const Pixel &pixel : row) {
        constexpr float half = 0.5F; // of a shade, for what is cut to be rounded
        const float most = std::clamp(pixel[alphaChannel], 0.0F, largestShade) + half;
        for (std::size_t i = 0; i < channels; ++i)
            byte[i] = uchar(std::clamp(pixel[i] + half, half, most));
        byte += channels;
    }
}

void add(Row &sums, const Row &row, float weight)
{
    for (std::size_t x = 0; x < sums.size(); ++x) {
        for (std::size_t i = 0; i < channels; ++i)
            sums[x][i] += weight * row[x][i];
    }
}

} // namespace

QImage resampled(const QImage &image, const QRectF &part, const QSize &size)
{
    if (image.isNull() || size.isEmpty() || part.isEmpty())
        return {};
    if (part == QRectF(image.rect()) && size == image.size())
        return image;
    if (part == QRectF(part.toRect()) && part.size() == QSizeF(size)
        && image.rect().contains(part.toRect()))
        return image.copy(part.toRect());
    QImage result(size, image.format());
    if (result.isNull())
        return {};
    releaseVectorRegisters();
    const LineFilter columns(part.left(), part.width(), image.width(), size.width());
    const LineFilter rows(part.top(), part.height(), image.height(), size.height());
    ResampledRows made(image, columns, rows.largestCount());
    Row sums(std::size_t(size.width()));
    for (int y = 0; y < size.height(); ++y) {
        std::fill(sums.begin(), sums.end(), Pixel{});
        for (int tap = 0; tap < rows.count(y); ++tap)
            add(sums, made.row(rows.first(y) + tap), rows.weights(y)[tap]);
        write(sums, result.scanLine(y));
    }
    return result;
}

} // namespace quenara
