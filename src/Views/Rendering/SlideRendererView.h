#pragma once

#include "ProjectModels.h"

#include <QPainter>
#include <QRect>
#include <QRectF>
#include <QSizeF>

#include <optional>

namespace quenara {

struct RenderCaches;

/// The one renderer of slides: fitted and centred in the area it is given, clipped to the slide.
/// Leaves the painter as it found it; what lies around the slide is not painted.
struct SlideRendererView
{
    /// Without a slide, a black rectangle of the standard aspect ratio.
    std::optional<Slide> slide;
    bool showSafeArea = false;
    std::optional<QString> selectedElementID = std::nullopt;

    void paint(QPainter &painter, const QRectF &area, RenderCaches &caches) const;

    /// The part of \a area where nothing behind the slide is seen. Empty if the slide may be
    /// translucent.
    [[nodiscard]] QRect hiddenRect(const QRectF &area) const;

    /// The largest rectangle of \a aspectRatio (width over height), centred in \a container. Empty
    /// at the origin if the container is empty.
    [[nodiscard]] static QRectF fittedRect(const QSizeF &container, double aspectRatio);

    /// The part of \a area that the slide covers. Empty if it covers none.
    [[nodiscard]] QRectF slideRect(const QRectF &area) const;
};

} // namespace quenara
