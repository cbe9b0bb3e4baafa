#pragma once

#include "SlideDesignModels.h"

#include <QBrush>
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

    /// The gradient over \a slide, or the solid colour without one.
    QBrush gradientFill(const QRectF &slide) const;

private:
    /// False if there is no picture to be had.
    bool paintPicture(QPainter &painter, const QRectF &slide) const;
};

} // namespace quenara
