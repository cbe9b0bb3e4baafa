#include "Photograph.h"

#include <QBuffer>
#include <QImage>
#include <QRandomGenerator>

namespace quenara::bench {

SlideMedia photograph(quint32 seed)
{
    QImage image(4000, 3000, QImage::Format_RGB32);
    QRandomGenerator random(seed);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = qRgb(x / 16, y / 12, int(seed % 200 + random.bounded(24)));
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPG");
    return {.dataUrl = "data:image/jpeg;base64," + bytes.toBase64(),
            .name = QStringLiteral("photo.jpg"),
            .mimeType = QStringLiteral("image/jpeg")};
}

} // namespace quenara::bench
