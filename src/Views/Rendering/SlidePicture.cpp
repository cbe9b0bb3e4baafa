#include "SlidePicture.h"

#include <QPaintDevice>

#include <algorithm>

namespace quenara {

void SlidePicture::paint(QPainter &painter, const SlideDesignRenderView &view,
                         const QPointF &topLeft)
{
    const SlideDesign &design = view.slide.design;
    const Setting setting{.slide = view.whole().translated(topLeft),
                          .devicePixelRatio = painter.device()->devicePixelRatioF(),
                          .canvasSize = design.canvasSize,
                          .background = design.background,
                          .showsGuide = view.showSafeArea && design.safeAreaEnabled,
                          .selectedElementID = view.selectedElementID};
    if (setting.slide.isEmpty())
        return;
    const QList<SlideElement> layers = design.visibleElementsInDrawingOrder();
    if (setting != m_setting || m_picture.isNull()) {
        m_setting = setting;
        m_layers = layers;
        m_ground = {}; // until something changes
        m_picture = blank();
        paintOn(m_picture, [&](QPainter &whole) { view.paint(whole); });
    } else if (layers != m_layers) {
        const auto lowest =
            std::mismatch(layers.begin(), layers.end(), m_layers.begin(), m_layers.end()).first;
        const qsizetype index = lowest - layers.begin();
        m_layers = layers;
        paintFrom(index, view);
    }
    painter.drawImage(QPointF(covered().topLeft()) / m_setting.devicePixelRatio, m_picture);
}

/// What lies below the layer at \a lowest is as it was.
void SlidePicture::paintFrom(qsizetype lowest, const SlideDesignRenderView &view)
{
    if (m_ground.isNull() || m_groundLayerCount > lowest) {
        m_ground = blank();
        m_groundLayerCount = 0;
        paintOn(m_ground, [&](QPainter &painter) { view.paintBackground(painter); });
    }
    if (m_groundLayerCount < lowest) {
        paintOn(m_ground, [&](QPainter &painter) {
            view.paintLayers(painter,
                             m_layers.sliced(m_groundLayerCount, lowest - m_groundLayerCount));
        });
        m_groundLayerCount = lowest;
    }
    m_picture = m_ground;
    paintOn(m_picture, [&](QPainter &painter) {
        view.paintLayers(painter, m_layers.sliced(lowest));
        view.paintGuide(painter);
    });
}

/// What the picture covers, in device pixels.
QRect SlidePicture::covered() const
{
    const double ratio = m_setting.devicePixelRatio;
    return QRectF(m_setting.slide.topLeft() * ratio, m_setting.slide.size() * ratio)
        .toAlignedRect();
}

QImage SlidePicture::blank() const
{
    QImage image(covered().size(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(m_setting.devicePixelRatio);
    image.fill(Qt::transparent);
    return image;
}

void SlidePicture::paintOn(QImage &image, const std::function<void(QPainter &)> &paint) const
{
    QPainter painter(&image);
    painter.translate(m_setting.slide.topLeft()
                      - QPointF(covered().topLeft()) / m_setting.devicePixelRatio);
    painter.setClipRect(QRectF(QPointF(), m_setting.slide.size()));
    paint(painter);
}

} // namespace quenara
