#pragma once

#include "SlideDesignModels.h"

#include <QColor>
#include <QPainter>
#include <QRectF>

namespace quenara {

class PictureCache;

/// What lies behind the layers of a slide, its darkening included.
struct SlideBackgroundRenderView
{
    SlideBackground background;
    double scale; ///< points of the target for one canvas unit
    PictureCache *pictures = nullptr; ///< decodes afresh without one

    void paint(QPainter &painter, const QRectF &slide) const;

    /// Whether nothing shows through. Pictures are not asked: they count as if something did.
    bool isOpaque() const;

private:
    /// What is left of \a color under the darkening.
    QColor darkened(const RGBAColor &color) const;
    double dim() const;
    void paintGradient(QPainter &painter, const QRectF &slide) const;
    void paintCaption(QPainter &painter, const QRectF &slide) const;
    /// False if there is no picture to be had.
    bool paintPicture(QPainter &painter, const QRectF &slide) const;
};

} // namespace quenara
