#include "SlideRendererView.h"

#include "BoundedNumbers.h"
#include "DevicePixels.h"
#include "SlideBackgroundRenderView.h"
#include "SlideDesignRenderView.h"

namespace quenara {

QRectF SlideRendererView::fittedRect(const QSizeF &container, double aspectRatio)
{
    const double width = container.width();
    const double height = container.height();
    if (!(width > 0) || !(height > 0))
        return {};
    if (width / height > aspectRatio) {
        const double fitted = height * aspectRatio;
        return {(width - fitted) / 2, 0, fitted, height};
    }
    const double fitted = width / aspectRatio;
    return {0, (height - fitted) / 2, width, fitted};
}

QRectF SlideRendererView::slideRect(const QRectF &area) const
{
    const CanvasSize canvas = slide ? paintedSize(slide->design.canvasSize) : CanvasSize();
    if (!(canvas.width > 0) || !(canvas.height > 0))
        return {};
    return fittedRect(area.size(), canvas.width / canvas.height).translated(area.topLeft());
}

QRect SlideRendererView::hiddenRect(const QRectF &area) const
{
    if (!slide || !SlideBackgroundRenderView{slide->design.background, 1}.isOpaque())
        return {};
    // A point along its edges may be a part of several pixels.
    return slideRect(area).toAlignedRect().adjusted(2, 2, -2, -2);
}

void SlideRendererView::paint(QPainter &painter, const QRectF &area, RenderCaches &caches) const
{
    const QRectF fitted = slideRect(area);
    if (fitted.isEmpty())
        return;
    if (!slide) {
        painter.save();
        const QRectF pixels = touchedPixels(painter, fitted);
        useDevicePixels(painter);
        painter.fillRect(pixels, Qt::black);
        painter.restore();
        return;
    }
    painter.save();
    clipToPixels(painter, visiblePixels(painter, fitted));
    painter.translate(fitted.topLeft());
    SlideDesignRenderView{*slide, fitted.width() / paintedSize(slide->design.canvasSize).width,
                          showSafeArea, selectedElementID}
        .paint(painter, caches);
    painter.restore();
}

} // namespace quenara
