#include "TextPictures.h"

namespace quenara::test {

TextElementProperties plainText(const QString &text)
{
    TextElementProperties properties = TextElementProperties::lyric(text);
    properties.textColor = {1, 1, 1, 1};
    properties.shadow.reset();
    properties.padding = 0;
    return properties;
}

Slide textSlide(const TextElementProperties &text, const CanvasFrame &frame)
{
    SlideElement element;
    element.id = QStringLiteral("text");
    element.frame = frame;
    element.text = text;
    SlideDesign design = designOver(solidBackground({0, 0, 0, 1}));
    design.elements = {element};
    return slideWith(design);
}

QImage textPicture(const TextElementProperties &text, const CanvasFrame &frame)
{
    return rendered({.slide = textSlide(text, frame)}, canvas);
}

QRect inkOf(const QImage &image)
{
    constexpr int faint = 40;
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(line[x]) > faint)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

} // namespace quenara::test
