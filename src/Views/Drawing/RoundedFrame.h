#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>

namespace quenara {

/// Cuts images to a rectangle with continuous corners and draws a line along its inner edge. Holds
/// the masks of the last shape: painting them takes longer than framing an image, and a view frames
/// one image after another with the same shape.
class RoundedFrame
{
public:
    /// In pixels of the image, whatever its device pixel ratio.
    struct Shape
    {
        QRectF rect;
        double radius = 0;
        double lineWidth = 0;

        bool operator==(const Shape &) const = default;
    };

    /// Frames \a image, of Format_ARGB32_Premultiplied, and makes it transparent beyond the shape.
    void apply(QImage &image, const Shape &shape, const QColor &line);

private:
    void paintMasks(const QSize &size, const Shape &shape);

    Shape m_shape;
    // Masks of the size of the last image, Format_Alpha8: how much of each pixel is covered.
    QImage m_content; ///< by the image, which reaches to the middle of the line
    QImage m_line; ///< by the line
    QImage m_inside; ///< by what the line surrounds
};

} // namespace quenara
