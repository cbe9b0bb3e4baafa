#include "ImagesAhead.h"

#include "SlideRendererView.h"

#include <QImage>
#include <QPainter>

namespace quenara {

namespace {

/// Of one slide. No slide that is meant to be looked at has more.
constexpr qsizetype mostImages = 16;

/// What \a slide shows of each of its images alone.
QList<Slide> withOneImageEach(const Slide &slide)
{
    Slide bare;
    bare.design.canvasSize = slide.design.canvasSize;
    bare.design.elements.clear();
    QList<Slide> result;
    if (slide.design.background.kind == SlideBackgroundKind::image) {
        result.append(bare);
        result.last().design.background = slide.design.background;
    }
    for (const SlideElement &layer : slide.design.elements) {
        if (layer.visible && layer.kind == SlideElementKind::image && result.size() < mostImages) {
            result.append(bare);
            result.last().design.elements.append(layer);
            result.last().design.elements.last().opacity = 1;
        }
    }
    return result;
}

} // namespace

ImagesAhead::ImagesAhead(RenderCaches &caches, QObject *parent) : QObject(parent), m_caches(caches)
{
    m_idle.setSingleShot(true);
    m_idle.setInterval(0);
    connect(&m_idle, &QTimer::timeout, this, &ImagesAhead::prepareOne);
}

void ImagesAhead::prepare(const QList<Slide> &slides, const QSize &size, double devicePixelRatio)
{
    m_size = size;
    m_devicePixelRatio = devicePixelRatio;
    m_left.clear();
    for (const Slide &slide : slides)
        m_left.append(withOneImageEach(slide));
    goOn();
}

void ImagesAhead::goOn()
{
    if (m_left.isEmpty()) {
        m_idle.stop();
    } else {
        m_idle.start();
    }
}

void ImagesAhead::prepareOne()
{
    // Painted as it will be, but for all its pixels.
    QImage pixel(1, 1, QImage::Format_RGB32);
    pixel.setDevicePixelRatio(m_devicePixelRatio);
    QPainter painter(&pixel);
    SlideRendererView{.slide = m_left.first()}.paint(painter, QRectF(QPointF(), m_size), m_caches);
    m_left.removeFirst();
    // A timer that is started while it runs out may run out again before any event.
    QMetaObject::invokeMethod(this, &ImagesAhead::goOn, Qt::QueuedConnection);
}

} // namespace quenara
