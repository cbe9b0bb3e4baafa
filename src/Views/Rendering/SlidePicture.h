#pragma once

#include "SlideDesignRenderView.h"

#include <QImage>
#include <QList>

#include <functional>

namespace quenara {

/// A slide that is looked at while it is edited. Each change is painted once, and from one to the
/// next only from the lowest layer up that differs; what is seen is what SlideRendererView paints.
class SlidePicture
{
public:
    /// Draws \a view with the slide's top left at \a topLeft of the painter's coordinates, clipped
    /// to the slide.
    void paint(QPainter &painter, const SlideDesignRenderView &view, const QPointF &topLeft);

private:
    /// All but the layers that the picture depends on.
    struct Setting
    {
        QRectF slide; ///< points
        double devicePixelRatio = 1;
        CanvasSize canvasSize;
        SlideBackground background;
        bool showsGuide = false;
        std::optional<QString> selectedElementID;

        bool operator==(const Setting &) const = default;
    };

    void paintFrom(qsizetype lowest, const SlideDesignRenderView &view);
    QRect covered() const;
    QImage blank() const;
    void paintOn(QImage &image, const std::function<void(QPainter &)> &paint) const;

    Setting m_setting;
    QList<SlideElement> m_layers; ///< the visible ones of the picture, the lowest first
    QImage m_ground; ///< background and the lowest layers; null before the first change
    qsizetype m_groundLayerCount = 0;
    QImage m_picture;
};

} // namespace quenara
