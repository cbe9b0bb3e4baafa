#pragma once

#include "SlideDesignModels.h"

#include <QColor>
#include <QPainter>
#include <QRectF>

namespace quenara {

struct RenderCaches;

/// The background of a slide, darkened by its dim amount. It covers whole device pixels.
struct SlideBackgroundRenderView
{
    SlideBackground background;
    double scale; ///< points of the target for one canvas unit

    void paint(QPainter &painter, const QRectF &slide, RenderCaches &caches) const;

    /// Whether nothing behind the slide shows through. An image counts as translucent, since it is
    /// not decoded for this.
    [[nodiscard]] bool isOpaque() const;

private:
    /// \a color under the darkening.
    QColor darkened(const RGBAColor &color) const;
    double dim() const;
    // What paints through a painter whose coordinates are device pixels, which `scale` is then of.
    void paintPixels(QPainter &painter, const QRectF &slide, RenderCaches &caches) const;
    void paintGradient(QPainter &painter, const QRectF &slide) const;
    void paintCaption(QPainter &painter, const QRectF &slide) const;
    /// Returns false, having painted nothing, if there is no image to be had.
    bool paintImage(QPainter &painter, const QRectF &slide, RenderCaches &caches) const;
    void paintFilling(QPainter &painter, const QRectF &slide, const QRectF &place,
                      const QImage &image) const;
};

} // namespace quenara
