#include "TextImages.h"

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

QImage textImage(const TextElementProperties &text, const CanvasFrame &frame)
{
    return rendered({.slide = textSlide(text, frame)}, canvas);
}

} // namespace quenara::test
