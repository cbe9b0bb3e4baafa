#include "SlideThumbnails.h"

#include "SlideRendererView.h"

#include <QPainter>

namespace quenara {

namespace {

constexpr int patience = 6; ///< milliseconds, of the 16 that a frame lasts

} // namespace

void SlideThumbnails::startMaking()
{
    m_making.start();
    m_owesPictures = false;
    m_countBefore = m_madeCount;
}

QPixmap SlideThumbnails::thumbnail(const Slide &slide, double devicePixelRatio)
{
    const Entry *known = m_entries.object(slide.id);
    if (known && known->pixmap.devicePixelRatio() == devicePixelRatio
        && known->design == slide.design) {
        return known->pixmap;
    }
    if (m_making.elapsed() > patience && m_madeCount > m_countBefore) {
        m_owesPictures = true;
        return {};
    }
    ++m_madeCount;
    const QPixmap pixmap = made(slide, devicePixelRatio);
    m_entries.insert(slide.id, new Entry{slide.design, pixmap});
    return pixmap;
}

QPixmap SlideThumbnails::made(const Slide &slide, double devicePixelRatio) const
{
    QImage image((QSizeF(size) * devicePixelRatio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::black);
    QPainter painter(&image);
    SlideRendererView{.slide = slide, .pictures = &m_pictures}.paint(painter, {{0, 0}, size});
    painter.end();
    return QPixmap::fromImage(image);
}

} // namespace quenara
