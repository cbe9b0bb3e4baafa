#pragma once

#include "SlideMedia.h"

#include <QPainter>
#include <QRectF>

#include <optional>

namespace quenara {

struct RenderCaches;

/// An image layer, or a placeholder if there is no image to show.
struct ImageElementRenderView
{
    SharedOptional<SlideMedia> media;

    void paint(QPainter &painter, const QRectF &box, RenderCaches &caches) const;
};

/// Where the whole of an image of \a size lies that is scaled to fill \a box.
[[nodiscard]] QRectF filledPlace(const QSizeF &size, const QRectF &box);

/// The part of that image, in its pixels, that lies in \a place.
[[nodiscard]] QRectF filledPart(const QSizeF &size, const QRectF &box, const QRectF &place);

} // namespace quenara
