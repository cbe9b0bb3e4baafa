#include "SlideDesignRenderView.h"

#include "BoundedNumbers.h"
#include "DashedOutline.h"
#include "DeviceLayer.h"
#include "RGBAColor.h"
#include "SlideBackgroundRenderView.h"
#include "SlideElementRenderView.h"

#include <algorithm>
#include <cmath>

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

} // namespace

QList<SlideElement> paintedLayers(const SlideDesign &design)
{
    const QList<SlideElement> visible = design.visibleElementsInDrawingOrder();
    return visible.last(std::min(visible.size(), mostPaintedLayers));
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
        paintContent(painter, {element, scale}, elementBox, caches);
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
