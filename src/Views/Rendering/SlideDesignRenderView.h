#pragma once

#include "ProjectModels.h"

#include <QPainter>
#include <QRectF>

#include <optional>

namespace quenara {

struct RenderCaches;

/// Paints a slide at its canvas size times the scale: background, layers, editing aids.
struct SlideDesignRenderView
{
    Slide slide;
    double scale; ///< points of the target for one canvas unit
    bool showSafeArea = false;
    std::optional<QString> selectedElementID = std::nullopt;

    /// Paints with the slide's top left at the origin of the painter's coordinates.
    void paint(QPainter &painter, RenderCaches &caches) const;

    // The parts that paint() paints, in this order, each over the one before.
    void paintBackground(QPainter &painter, RenderCaches &caches) const;
    /// Paints \a layers from the first up, and the outline of the selected one with it.
    void paintLayers(QPainter &painter, const QList<SlideElement> &layers,
                     RenderCaches &caches) const;
    void paintGuide(QPainter &painter) const;

    /// The title-safe guide in points of the target.
    [[nodiscard]] QRectF safeArea() const;

    /// The layer's box before its rotation, in points of the target.
    QRectF box(const SlideElement &element) const;

    /// The slide in points of the target.
    QRectF whole() const;

    bool operator==(const SlideDesignRenderView &) const = default;
};

/// The layers that are painted of one slide at most, far more than a design has.
inline constexpr qsizetype mostPaintedLayers = 500;

/// How many times the canvas the shadows and outlines of one slide may cover together, again far
/// more than in any design.
inline constexpr double mostBlurredCanvases = 32;

/// The visible layers of \a design in drawing order; of too many, the topmost ones. Likewise, the
/// lowest ones have no shadow and no outline where there is too much of those.
[[nodiscard]] QList<SlideElement> paintedLayers(const SlideDesign &design);

} // namespace quenara
