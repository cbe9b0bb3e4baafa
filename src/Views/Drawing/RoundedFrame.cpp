#include "RoundedFrame.h"

#include "DevicePixels.h"
#include "PaintingWorkarounds.h"
#include "RoundedShapes.h"

#include <QPainter>

namespace quenara {

namespace {

constexpr int full = 255;

/// \a pixel, premultiplied, where it covers only \a coverage of 255.
QRgb part(QRgb pixel, int coverage)
{
    const auto share = [&](int channel) { return (channel * coverage + full / 2) / full; };
    return qRgba(share(qRed(pixel)), share(qGreen(pixel)), share(qBlue(pixel)),
                 share(qAlpha(pixel)));
}

/// The rounded rectangle \a inset pixels within the edge. Empty if nothing is left.
QPainterPath edge(const RoundedFrame::Shape &shape, double inset)
{
    const QRectF rect = shape.rect.adjusted(inset, inset, -inset, -inset);
    return rect.isEmpty() ? QPainterPath() : continuousRoundedRect(rect, shape.radius - inset);
}

QImage coverage(const QSize &size, const QPainterPath &path)
{
    QImage image(size, QImage::Format_Alpha8);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    constexpr int runs = 8; // the pixels of a line's edges at both sides, and what lies between
    paintInBands(painter, path.boundingRect(), runs, [&] { painter.fillPath(path, Qt::black); });
    return image;
}

} // namespace

void RoundedFrame::paintMasks(const QSize &size, const Shape &shape)
{
    if (m_line.size() == size && m_shape == shape)
        return;
    m_shape = shape;
    const QPainterPath inside = edge(shape, shape.lineWidth);
    QPainterPath line = edge(shape, 0);
    line.addPath(inside);
    m_content = coverage(size, edge(shape, shape.lineWidth / 2));
    m_line = coverage(size, line);
    m_inside = coverage(size, inside);
}

void RoundedFrame::apply(QImage &image, const Shape &shape, const QColor &line)
{
    if (image.isNull())
        return;
    paintMasks(image.size(), shape);
    const QRgb lineColor = qPremultiply(line.rgba());
    for (int y = 0; y < image.height(); ++y) {
        auto *pixels = reinterpret_cast<QRgb *>(image.scanLine(y));
        const uchar *shown = m_content.constScanLine(y);
        const uchar *outline = m_line.constScanLine(y);
        const uchar *inside = m_inside.constScanLine(y);
        const auto frame = [&](int x) {
            const QRgb over = part(lineColor, outline[x]);
            pixels[x] = over + part(part(pixels[x], shown[x]), full - qAlpha(over));
        };
        // A row's pixels inside the line stay as they are, and form one piece.
        int left = 0;
        for (; left < image.width() && inside[left] != full; ++left)
            frame(left);
        for (int right = image.width() - 1; right > left && inside[right] != full; --right)
            frame(right);
    }
}

} // namespace quenara
