#include "DarkenedImage.h"

#include "DevicePixels.h"
#include "DitherPattern.h"
#include "PaintingWorkarounds.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quenara {

namespace {

constexpr int bandHeight = 64; ///< pixels; a multiple of the pattern's
constexpr std::size_t channels = 4;

/// Darkens rows of premultiplied pixels. Counts in 1/256 of the step from one shade to the next.
class Darkening
{
public:
    explicit Darkening(double dim)
        // Upwards, since what is multiplied by it is cut.
        : m_left(quint16(std::min(std::ceil((1 - dim) * whole), whole - 1)))
    {
        // Black adds nothing but alpha, of which white's must stay whole.
        const quint32 white = 255U << 8U;
        const QRgb alpha = qRgba(0, 0, 0, 1);
        for (std::size_t i = 0; i < channels; ++i) {
            const bool isAlpha = reinterpret_cast<const uchar *>(&alpha)[i] != 0;
            m_added.at(i) = quint16(isAlpha ? white - ((white * m_left) >> 16U) : 0);
        }
    }

    /// Of the row \a y of an area.
    void darken(QRgb *pixels, int width, int y) const
    {
        constexpr std::size_t block = channels * DitherPattern::side;
        std::array<quint16, block> added{};
        for (std::size_t i = 0; i < block; ++i) {
            const int threshold = DitherPattern::at(int(i / channels), y);
            added.at(i) = quint16(m_added.at(i % channels) + threshold);
        }
        auto *bytes = reinterpret_cast<uchar *>(pixels);
        const std::size_t count = channels * std::size_t(width);
        const std::size_t rest = count % block;
        for (std::size_t first = 0; first < count - rest; first += block)
            darken(bytes + first, block, added.data());
        darken(bytes + count - rest, rest, added.data());
    }

private:
    static constexpr double whole = 1U << 16U;

    void darken(uchar *bytes, std::size_t count, const quint16 *added) const
    {
        for (std::size_t i = 0; i < count; ++i) {
            const auto fine = quint16(bytes[i] << 8U);
            const auto left = quint16((quint32(fine) * m_left) >> 16U);
            bytes[i] = uchar(quint16(left + added[i]) >> 8U);
        }
    }

    quint16 m_left; ///< of each shade, in 1/65536
    std::array<quint16, channels> m_added{}; ///< by the place of a channel in memory
};

} // namespace

void DarkenedImage::paint(QPainter &painter, const QRectF &place, const QRect &pixels) const
{
    const Darkening darkening(std::clamp(dim, 0.0, 1.0));
    const QRect visible = visiblePixels(painter, pixels);
    QImage band(pixels.width(), bandHeight, image.format());
    if (visible.isEmpty() || band.isNull())
        return;
    // From the top of all, so that a part is painted as it is in the whole.
    const int first =
        pixels.top() + std::max(0, visible.top() - pixels.top()) / bandHeight * bandHeight;
    for (int top = first; top <= std::min(visible.bottom(), pixels.bottom()); top += bandHeight) {
        releaseVectorRegisters();
        if (band.hasAlphaChannel())
            band.fill(Qt::transparent);
        QPainter bandPainter(&band);
        bandPainter.setRenderHints(painter.renderHints());
        bandPainter.translate(-pixels.left(), -top);
        bandPainter.drawImage(place, image);
        bandPainter.end();
        const int height = std::min(bandHeight, pixels.bottom() + 1 - top);
        for (int y = 0; y < height; ++y) {
            darkening.darken(reinterpret_cast<QRgb *>(band.scanLine(y)), band.width(),
                             top - pixels.top() + y);
        }
        painter.drawImage(QPoint(pixels.left(), top), band, QRect(0, 0, band.width(), height));
    }
}

} // namespace quenara
