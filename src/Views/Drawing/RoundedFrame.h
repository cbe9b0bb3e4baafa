#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>

namespace quenara {

/// Cuts pictures to a rectangle with continuous corners and draws a line along its inner edge.
/// Remembers the last shape: finding what it covers takes longer than framing a picture, and a view
/// frames one after another alike.
class RoundedFrame
{
public:
    /// In pixels of the picture, whatever its device pixel ratio.
    struct Shape
    {
        QRectF rect;
        double radius = 0;
        double lineWidth = 0;

        bool operator==(const Shape &) const = default;
    };

    /// Takes Format_ARGB32_Premultiplied and makes transparent what lies beyond the shape.
    void apply(QImage &picture, const Shape &shape, const QColor &line);

private:
    void find(const QSize &size, const Shape &shape);

    Shape m_shape;
    // Coverage, Format_Alpha8, of the size of the last picture.
    QImage m_picture; ///< by the picture, which reaches to the middle of the line
    QImage m_line;
    QImage m_inside; ///< by what the line surrounds
};

} // namespace quenara
