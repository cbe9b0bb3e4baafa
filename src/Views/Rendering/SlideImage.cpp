#include "SlideImage.h"

#include <QPaintDevice>

#include <algorithm>

namespace quenara {

namespace {

/// \a view without its layers, and without what the operator alone sees of the slide.
SlideDesignRenderView withoutLayers(SlideDesignRenderView view)
{
    SlideDesign design = view.slide.design;
    design.elements.clear();
    view.slide = {};
    view.slide.design = design;
    return view;
}

} // namespace

void SlideImage::paint(QPainter &painter, const SlideDesignRenderView &view, const QPointF &topLeft,
                       RenderCaches &caches)
{
    if (view.whole().isEmpty())
        return;
    const Key key{.view = withoutLayers(view),
                  .topLeft = topLeft,
                  .devicePixelRatio = painter.device()->devicePixelRatioF()};
    const QList<SlideElement> layers = paintedLayers(view.slide.design);
    if (m_key != key) {
        m_key = key;
        m_layers = layers;
        m_ground = {}; // painted with the first edit, if there is any
        m_image = blank();
        paintOn(m_image, [&](QPainter &whole) { view.paint(whole, caches); });
    } else if (layers != m_layers) {
        const auto lowest =
            std::mismatch(layers.begin(), layers.end(), m_layers.begin(), m_layers.end()).first;
        const qsizetype index = lowest - layers.begin();
        m_layers = layers;
        paintFrom(index, view, caches);
    }
    painter.drawImage(QPointF(coveredPixels().topLeft()) / key.devicePixelRatio, m_image);
}

/// The layers below the one at \a lowest are as they were.
void SlideImage::paintFrom(qsizetype lowest, const SlideDesignRenderView &view,
                           RenderCaches &caches)
{
    if (m_ground.isNull() || m_groundLayerCount > lowest) {
        m_ground = blank();
        m_groundLayerCount = 0;
        paintOn(m_ground, [&](QPainter &painter) { view.paintBackground(painter, caches); });
    }
    if (m_groundLayerCount < lowest) {
        paintOn(m_ground, [&](QPainter &painter) {
            view.paintLayers(
                painter, m_layers.sliced(m_groundLayerCount, lowest - m_groundLayerCount), caches);
        });
        m_groundLayerCount = lowest;
    }
    m_image = m_ground;
    paintOn(m_image, [&](QPainter &painter) {
        view.paintLayers(painter, m_layers.sliced(lowest), caches);
        view.paintGuide(painter);
    });
}

/// In points of the device that the image is drawn to.
QRectF SlideImage::slideRect() const
{
    return m_key->view.whole().translated(m_key->topLeft);
}

QRect SlideImage::coveredPixels() const
{
    const double ratio = m_key->devicePixelRatio;
    return QRectF(slideRect().topLeft() * ratio, slideRect().size() * ratio).toAlignedRect();
}

QImage SlideImage::blank() const
{
    QImage image(coveredPixels().size(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(m_key->devicePixelRatio);
    image.fill(Qt::transparent);
    return image;
}

void SlideImage::paintOn(QImage &image, const std::function<void(QPainter &)> &paint) const
{
    QPainter painter(&image);
    // Of no use but that Qt does not have its threads fill what is clipped.
    painter.setClipRect(QRectF(QPointF(), QSizeF(image.size()) / m_key->devicePixelRatio));
    painter.translate(slideRect().topLeft()
                      - QPointF(coveredPixels().topLeft()) / m_key->devicePixelRatio);
    paint(painter);
}

} // namespace quenara
