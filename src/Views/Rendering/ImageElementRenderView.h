#pragma once

#include "SlideMedia.h"

#include <QPainter>
#include <QRectF>

#include <optional>

namespace quenara {

struct RenderCaches;

/// An image layer, or its placeholder while there is no image to show.
struct ImageElementRenderView
{
    std::optional<SlideMedia> media;

    void paint(QPainter &painter, const QRectF &box, RenderCaches &caches) const;
};

/// The part of an image of \a size that fills \a box at its aspect ratio, centred; in pixels of the
/// image.
QRectF fillingPart(const QSizeF &size, const QRectF &box);

} // namespace quenara
