#pragma once

#include <QColor>
#include <QImage>

namespace quenara::test {

/// How many pixels of \a image have exactly this colour.
inline int pixelsOf(const QColor &color, const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y).rgba() == color.rgba();
    }
    return count;
}

} // namespace quenara::test
