#include "TextElementRenderView.h"

#include "DeviceLayer.h"
#include "DevicePixels.h"
#include "GaussianBlur.h"
#include "PaintingWorkarounds.h"
#include "RenderCaches.h"
#include "RoundedShapes.h"

#include <QColor>

#include <algorithm>
#include <array>
#include <cmath>

namespace quenara {

namespace {

constexpr double fillCornerRadius = 10; // canvas units
constexpr int roundingRoom = 2; // device pixels that letters may be moved to stand on whole rows
constexpr double smallestLetters = 0.5; // device pixels; smaller ones are not seen

/// A blurred copy of the text in one colour. Lengths are in canvas units.
struct Glow
{
    QColor color;
    double radius = 0;
    QPointF offset;
};

/// \a color as translucent as the letters that it is blurred from, which have the colour \a text.
QColor faded(const RGBAColor &color, const RGBAColor &text)
{
    QColor result = color.toColor();
    result.setAlphaF(result.alphaF() * text.toColor().alphaF());
    return result;
}

/// The alpha channel of \a image, of a format with 32 bits a pixel.
QImage coverage(const QImage &image)
{
    QImage mask(image.size(), QImage::Format_Alpha8);
    for (int y = 0; y < mask.height(); ++y) {
        const auto *from = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        std::transform(from, from + mask.width(), mask.scanLine(y),
                       [](QRgb pixel) { return uchar(qAlpha(pixel)); });
    }
    return mask;
}

/// An image of \a color with the alpha of \a mask.
QImage tinted(const QImage &mask, const QColor &color)
{
    std::array<QRgb, 256> shades{};
    for (unsigned alpha = 0; alpha < shades.size(); ++alpha) {
        shades[alpha] = qPremultiply(qRgba(color.red(), color.green(), color.blue(),
                                           int(std::lround(color.alphaF() * float(alpha)))));
    }
    QImage image(mask.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < mask.height(); ++y) {
        const uchar *from = mask.constScanLine(y);
        auto *to = reinterpret_cast<QRgb *>(image.scanLine(y));
        std::transform(from, from + mask.width(), to, [&](uchar alpha) { return shades[alpha]; });
    }
    return image;
}

/// Takes a painter in canvas units with the block's box at its origin.
void paintGlow(QPainter &painter, TextBlock &block, const Glow &glow, RenderCaches &caches)
{
    // A blur radius is twice the standard deviation of the Gaussian.
    const BlurPlan plan(glow.radius / 2 * deviceScale(painter));
    painter.save();
    painter.translate(glow.offset);
    DeviceLayer layer = DeviceLayer::painted(
        painter, block.inkBounds(caches), plan.reach + roundingRoom,
        [&](QPainter &mask) {
            mask.setPen(Qt::black);
            block.draw(mask, caches,
                       plan.reduction > 1 ? TextBlock::Placement::exact
                                          : TextBlock::Placement::onWholeRows);
        },
        plan.reduction);
    if (!layer.image.isNull()) {
        layer.image = tinted(gaussianBlurred(coverage(layer.image), plan.sigma), glow.color);
        layer.draw(painter, 1);
        releaseVectorRegisters(); // for the letters that follow
    }
    painter.restore();
}

/// Paints translucent letters as one layer: where they overlap or join, as those of Arabic do, no
/// seams must show.
void paintText(QPainter &painter, TextBlock &block, QColor color, RenderCaches &caches)
{
    const QColor faded = color;
    const double opacity = color.alphaF();
    color.setAlphaF(1);
    const auto paint = [&](QPainter &target) {
        target.setPen(color);
        block.draw(target, caches);
    };
    // On a page, letters of one text do not show through one another.
    if (isOnPage(painter)) {
        painter.setPen(faded);
        block.draw(painter, caches);
    } else if (opacity < 1) {
        DeviceLayer::painted(painter, block.inkBounds(caches), roundingRoom, paint)
            .draw(painter, opacity);
    } else {
        paint(painter);
    }
}

/// Takes a painter in canvas units with the layer's box at its origin.
void paintLetters(QPainter &painter, const TextElementProperties &text, TextBlock &block,
                  RenderCaches &caches)
{
    painter.translate(text.padding, text.padding);
    const auto asStrong = [&](const RGBAColor &color) { return faded(color, text.textColor); };
    if (text.outline)
        paintGlow(painter, block, {asStrong(text.outline->color), text.outline->width, {}}, caches);
    if (text.shadow) {
        const TextShadow &shadow = *text.shadow;
        paintGlow(painter, block, {asStrong(shadow.color), shadow.radius, {shadow.x, shadow.y}},
                  caches);
    }
    paintText(painter, block, text.textColor.toColor(), caches);
}

} // namespace

void TextElementRenderView::paint(QPainter &painter, const QRectF &box, RenderCaches &caches,
                                  TextBlock *laidOut) const
{
    if (scale <= 0)
        return;
    const QSizeF size = box.size() / scale - 2 * QSizeF(text.padding, text.padding);
    const bool isLegible = text.fontSize * scale * deviceScale(painter) >= smallestLetters;
    std::shared_ptr<TextBlock> held;
    if (isLegible && !laidOut) {
        held = caches.textBlocks.block(text, size);
        laidOut = held.get();
    }
    painter.save();
    if (text.backgroundFill) {
        const double halfPixel = 0.5 / deviceScale(painter) / scale;
        fillRoundedRect(painter, isLegible ? heldBy(box, *laidOut, halfPixel, caches) : box,
                        fillCornerRadius * scale, text.backgroundFill->toColor());
    }
    painter.translate(box.topLeft());
    painter.scale(scale, scale);
    if (isLegible)
        paintLetters(painter, text, *laidOut, caches);
    painter.restore();
}

/// \a box, made higher for what reaches out of it: a single line, and the marks on its capitals.
/// Half a pixel is so many canvas units.
QRectF TextElementRenderView::heldBy(const QRectF &box, TextBlock &block, double halfPixel,
                                     RenderCaches &caches) const
{
    QRectF letters = block.letterBounds(caches).translated(text.padding, text.padding);
    if (letters.isEmpty())
        return box;
    letters = {box.left(), box.top() + letters.top() * scale, box.width(),
               letters.height() * scale};
    // As far as lines are moved to whole rows.
    const double moved = halfPixel * scale;
    QRectF result = box;
    if (letters.top() < box.top())
        result.setTop(letters.top() - moved);
    if (letters.bottom() > box.bottom())
        result.setBottom(letters.bottom() + moved);
    return result;
}

} // namespace quenara
