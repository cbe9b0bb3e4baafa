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

    // What that paints, one over the other.
    void paintBackground(QPainter &painter) const;
    /// Each of \a layers with what marks the selected one, from the first up.
    void paintLayers(QPainter &painter, const QList<SlideElement> &layers) const;
    void paintGuide(QPainter &painter) const;

    /// The title-safe guide in points of the target.
    QRectF safeArea() const;

    /// The layer's box before its rotation, in points of the target.
    QRectF box(const SlideElement &element) const;

    /// The slide in points of the target.
    QRectF whole() const;
};

} // namespace quenara
