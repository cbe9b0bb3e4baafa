#include "TextElementRenderView.h"

#include "DeviceLayer.h"
#include "GaussianBlur.h"
#include "RoundedShapes.h"
#include "TextBlock.h"

#include <QColor>

#include <algorithm>
#include <array>

namespace quenara {

namespace {

constexpr double fillCornerRadius = 10; // canvas units

/// A blurred copy of the text in one colour; lengths in canvas units.
struct Glow
{
    RGBAColor color;
    double radius = 0;
    QPointF offset;
};

/// \a color as strong as \a mask is.
QImage tinted(const QImage &mask, const QColor &color)
{
    std::array<QRgb, 256> shades{};
    for (unsigned alpha = 0; alpha < shades.size(); ++alpha) {
        shades[alpha] = qPremultiply(
            qRgba(color.red(), color.green(), color.blue(), int(color.alphaF() * float(alpha))));
    }
    QImage picture(mask.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < mask.height(); ++y) {
        const uchar *from = mask.constScanLine(y);
        auto *to = reinterpret_cast<QRgb *>(picture.scanLine(y));
        std::transform(from, from + mask.width(), to, [&](uchar alpha) { return shades[alpha]; });
    }
    return picture;
}

/// \a painter is in canvas units, the block's box at its origin.
void paintGlow(QPainter &painter, TextBlock &block, const Glow &glow)
{
    const double scale = deviceScale(painter);
    // A blur radius is twice the standard deviation of the Gaussian.
    const double sigma = std::max(0.0, glow.radius) / 2 * scale;
    const int reduction = blurReduction(sigma);
    painter.save();
    painter.translate(glow.offset);
    DeviceLayer layer = DeviceLayer::painted(
        painter, block.bounds(), blurReach(sigma),
        [&](QPainter &mask) {
            mask.setPen(Qt::black);
            block.draw(mask);
        },
        reduction);
    if (!layer.image.isNull()) {
        const QImage mask =
            gaussianBlurred(layer.image.convertToFormat(QImage::Format_Alpha8), sigma / reduction);
        layer.image = tinted(mask, glow.color.toColor());
        layer.draw(painter, 1);
    }
    painter.restore();
}

} // namespace

void TextElementRenderView::paint(QPainter &painter, const QRectF &box) const
{
    if (scale <= 0)
        return;
    painter.save();
    if (text.backgroundFill) {
        painter.fillPath(continuousRoundedRect(box, fillCornerRadius * scale),
                         text.backgroundFill->toColor());
    }
    const QSizeF inner(box.width() / scale - 2 * text.padding,
                       box.height() / scale - 2 * text.padding);
    TextBlock block(text, inner);
    painter.translate(box.topLeft());
    painter.scale(scale, scale);
    painter.translate(text.padding, text.padding);
    if (text.outline)
        paintGlow(painter, block, {text.outline->color, text.outline->width, {}});
    if (text.shadow) {
        paintGlow(painter, block,
                  {text.shadow->color, text.shadow->radius, {text.shadow->x, text.shadow->y}});
    }
    painter.setPen(text.textColor.toColor());
    block.draw(painter);
    painter.restore();
}

} // namespace quenara
