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
        painter, block.inkBounds(), blurReach(sigma),
        [&](QPainter &mask) {
            mask.setPen(Qt::black);
            block.draw(mask,
                       reduction > 1 ? TextBlock::Placement::exact
                                     : TextBlock::Placement::onWholeRows);
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

/// Letters that overlap or join, as those of Arabic do, show no seams where the colour is
/// translucent.
void paintText(QPainter &painter, TextBlock &block, QColor color)
{
    const double opacity = color.alphaF();
    color.setAlphaF(1);
    const auto paint = [&](QPainter &target) {
        target.setPen(color);
        block.draw(target);
    };
    if (opacity < 1)
        DeviceLayer::painted(painter, block.inkBounds(), 1, paint).draw(painter, opacity);
    else
        paint(painter);
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
    paintText(painter, block, text.textColor.toColor());
    painter.restore();
}

} // namespace quenara
