#pragma once

#include "SlideDesignRenderView.h"

#include <QImage>
#include <QList>

#include <functional>
#include <optional>

namespace quenara {

/// The image of a slide that is edited while it is looked at. An edit is painted once, however
/// often the image is drawn, and only from the lowest layer that it changed up. What is seen is
/// what SlideRendererView paints.
class SlideImage
{
public:
    /// Draws \a view with the slide's top left at \a topLeft of the painter's coordinates, clipped
    /// to the slide.
    void paint(QPainter &painter, const SlideDesignRenderView &view, const QPointF &topLeft,
               RenderCaches &caches);

private:
    /// All that the image depends on except the layers.
    struct Key
    {
        SlideDesignRenderView view;
        QPointF topLeft;
        double devicePixelRatio = 1;

        bool operator==(const Key &) const = default;
    };

    void paintFrom(qsizetype lowest, const SlideDesignRenderView &view, RenderCaches &caches);
    QRectF slideRect() const;
    QRect coveredPixels() const;
    QImage blank() const;
    void paintOn(QImage &image, const std::function<void(QPainter &)> &paint) const;

    std::optional<Key> m_key; ///< of m_image
    QList<SlideElement> m_layers; ///< that are visible in m_image, the lowest first
    QImage m_image;
    QImage m_ground; ///< background and the lowest layers; null before the first edit
    qsizetype m_groundLayerCount = 0;
};

} // namespace quenara
