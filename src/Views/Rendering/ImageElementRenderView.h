#pragma once

#include "SlideMedia.h"

#include <QPainter>
#include <QRectF>

#include <optional>

namespace quenara {

class PictureCache;

/// An image layer, or its placeholder while there is no picture to show.
struct ImageElementRenderView
{
    std::optional<SlideMedia> media;
    PictureCache *pictures = nullptr; ///< decodes afresh without one

    void paint(QPainter &painter, const QRectF &box) const;
};

/// The part of a picture of \a size that fills \a box at its aspect ratio, centred; in pixels of
/// the picture.
QRectF fillingPart(const QSizeF &size, const QRectF &box);

} // namespace quenara
