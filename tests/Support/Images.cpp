#include "Images.h"

#include <QBuffer>
#include <QColor>
#include <QPainter>

#include <algorithm>

namespace quenara::test {

QImage quarters(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    const QSize half = size / 2;
    QPainter painter(&image);
    painter.fillRect(QRect({0, 0}, half), Qt::red);
    painter.fillRect(QRect({half.width(), 0}, half), Qt::green);
    painter.fillRect(QRect({0, half.height()}, half), Qt::blue);
    painter.fillRect(QRect({half.width(), half.height()}, half), Qt::white);
    return image;
}

bool showsQuarters(const QImage &image)
{
    constexpr int loss = 12;
    const auto isNear = [&](int eighthX, int eighthY, const QColor &color) {
        const QColor seen =
            image.pixelColor(image.width() * eighthX / 8, image.height() * eighthY / 8);
        return std::max({std::abs(seen.red() - color.red()), std::abs(seen.green() - color.green()),
                         std::abs(seen.blue() - color.blue())})
            <= loss;
    };
    return !image.isNull() && isNear(2, 2, Qt::red) && isNear(6, 2, Qt::green)
        && isNear(2, 6, Qt::blue) && isNear(6, 6, Qt::white);
}

QByteArray encoded(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    constexpr int best = 100;
    image.save(&buffer, format, best);
    return bytes;
}

SlideMedia mediaOf(const QByteArray &bytes)
{
    return {.dataUrl = "data:image/any;base64," + bytes.toBase64(), .name = {}, .mimeType = {}};
}

} // namespace quenara::test
