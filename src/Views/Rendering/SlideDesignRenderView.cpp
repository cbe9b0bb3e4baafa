#include "SlideDesignRenderView.h"

#include "BoundedNumbers.h"
#include "DashedOutline.h"
#include "DeviceLayer.h"
#include "RGBAColor.h"
#include "SlideBackgroundRenderView.h"
#include "SlideElementRenderView.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quenara {

namespace {

// The width and height, in canvas units, by which the guide is smaller than the canvas.
constexpr double safeAreaInsetX = 180;
constexpr double safeAreaInsetY = 150;

constexpr QPainter::RenderHints hints =
    QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform;

void paintContent(QPainter &painter, const SlideElementRenderView &content, const QRectF &box,
                  RenderCaches &caches)
{
    const double opacity = std::clamp(content.element.opacity, 0.0, 1.0);
    if (opacity == 0)
        return;
    if (opacity == 1 || content.isOnePiece()) {
        painter.setOpacity(painter.opacity() * opacity);
        content.paint(painter, box, caches);
    } else {
        // The layer fades as a whole: where its parts overlap, the lower ones must not show
        // through.
        const double around = content.overhang();
        const QRectF bounds = box.adjusted(-around, -around, around, around);
        DeviceLayer::painted(painter, bounds, 1, [&](QPainter &layer) {
            content.paint(layer, box, caches);
        }).draw(painter, opacity);
    }
}

/// How much of a slide, in square canvas units, the shadow and the outline of \a layer may cover.
double blurredArea(const SlideElement &layer, double canvas)
{
    if (!isText(layer.kind) || !layer.text)
        return 0;
    const auto around = [&](double radius) {
        const double sides = 2 * std::max(0.0, radius);
        return std::min(canvas,
                        (std::max(0.0, layer.frame.width) + sides)
                            * (std::max(0.0, layer.frame.height) + sides));
    };
    const TextElementProperties &text = *layer.text;
    return (text.shadow ? around(text.shadow->radius) : 0)
        + (text.outline ? around(text.outline->width) : 0);
}

void removeGlow(SlideElement &layer)
{
    if (!std::as_const(layer).text || !isText(layer.kind))
        return;
    layer.text->shadow.reset();
    layer.text->outline.reset();
}

} // namespace

QList<SlideElement> paintedLayers(const SlideDesign &design)
{
    QList<SlideElement> layers = design.visibleElementsInDrawingOrder(mostPaintedLayers);
    const double canvas = design.canvasSize.width * design.canvasSize.height;
    double blurred = 0;
    for (qsizetype i = layers.size(); i-- > 0;) {
        blurred += blurredArea(layers.at(i), canvas);
        if (blurred > mostBlurredCanvases * canvas)
            removeGlow(layers[i]);
    }
    return layers;
}

QRectF SlideDesignRenderView::safeArea() const
{
    const CanvasSize canvas = paintedSize(slide.design.canvasSize);
    QRectF guide(0, 0, (canvas.width - safeAreaInsetX) * scale,
                 (canvas.height - safeAreaInsetY) * scale);
    guide.moveCenter({canvas.width * scale / 2, canvas.height * scale / 2});
    return guide;
}

QRectF SlideDesignRenderView::box(const SlideElement &element) const
{
    const CanvasFrame &frame = element.frame;
    return {frame.x * scale, frame.y * scale, frame.width * scale, frame.height * scale};
}

QRectF SlideDesignRenderView::whole() const
{
    const CanvasSize canvas = paintedSize(slide.design.canvasSize);
    return {0, 0, canvas.width * scale, canvas.height * scale};
}

void SlideDesignRenderView::paint(QPainter &painter, RenderCaches &caches) const
{
    paintBackground(painter, caches);
    paintLayers(painter, paintedLayers(slide.design), caches);
    paintGuide(painter);
}

void SlideDesignRenderView::paintBackground(QPainter &painter, RenderCaches &caches) const
{
    painter.save();
    painter.setRenderHints(hints);
    SlideBackgroundRenderView{withBoundedNumbers(slide.design.background), scale}.paint(
        painter, whole(), caches);
    painter.restore();
}

void SlideDesignRenderView::paintLayers(QPainter &painter, const QList<SlideElement> &layers,
                                        RenderCaches &caches) const
{
    for (const SlideElement &layer : layers) {
        const SlideElement element = withBoundedNumbers(layer);
        const QRectF elementBox = box(element);
        painter.save();
        painter.setRenderHints(hints);
        painter.save();
        painter.translate(elementBox.center());
        painter.rotate(std::fmod(layer.rotation, 360)); // a whole turn of any number is none
        painter.translate(-elementBox.center());
        paintContent(painter, {element, scale, whole()}, elementBox, caches);
        painter.restore();
        // The outline follows the slide's edges. What surrounds the layer is the editor's to draw.
        if (selectedElementID == element.id) {
            const QColor color = RGBAColor::amber.toColor();
            DashedOutline{.color = color, .width = 2, .dash = 7, .gap = 5}.paint(painter, whole());
        }
        painter.restore();
    }
}

void SlideDesignRenderView::paintGuide(QPainter &painter) const
{
    if (!showSafeArea || !slide.design.safeAreaEnabled)
        return;
    painter.save();
    painter.setRenderHints(hints);
    const QColor faint = QColor::fromRgbF(1, 1, 1, 0.35F);
    DashedOutline{.color = faint, .width = 1, .dash = 8, .gap = 8}.paint(painter, safeArea());
    painter.restore();
}

} // namespace quenara
