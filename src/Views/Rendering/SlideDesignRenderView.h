#pragma once

#include "ProjectModels.h"

#include <QPainter>
#include <QRectF>

#include <optional>

namespace quenara {

class PictureCache;

/// A slide at exactly its canvas size times the scale: background, layers, editing aids.
struct SlideDesignRenderView
{
    Slide slide;
    double scale; ///< points of the target for one canvas unit
    bool showSafeArea = false;
    std::optional<QString> selectedElementID = std::nullopt;
    PictureCache *pictures = nullptr; ///< decodes afresh without one

    /// Paints with the slide's top left at the origin of the painter's coordinates.
    void paint(QPainter &painter) const;

    /// The title-safe guide in points of the target.
    QRectF safeArea() const;

    /// The layer's box before its rotation, in points of the target.
    QRectF box(const SlideElement &element) const;
};

} // namespace quenara
