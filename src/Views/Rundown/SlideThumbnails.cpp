#include "SlideThumbnails.h"

#include "SlideRendererView.h"
#include "TextNotice.h"

#include <QPainter>

namespace quenara {

namespace {

constexpr int patience = 6; ///< milliseconds for making thumbnails, of the 16 that a frame lasts

} // namespace

void SlideThumbnails::startMaking()
{
    m_making.start();
    m_owesThumbnails = false;
    m_countBefore = m_madeCount;
}

QPixmap SlideThumbnails::thumbnail(const Slide &slide, double devicePixelRatio)
{
    const Key key{slide.design, devicePixelRatio};
    const Entry *known = m_entries.object(slide.id);
    if (known && known->key == key)
        return known->pixmap;
    if (m_making.elapsed() > patience && m_madeCount > m_countBefore) {
        m_owesThumbnails = true;
        return {};
    }
    ++m_madeCount;
    const QPixmap pixmap = made(key);
    // The texts have just been laid out for the image.
    m_entries.insert(slide.id, new Entry{key, pixmap, textNotice(key.design, m_caches)});
    return pixmap;
}

QString SlideThumbnails::notice(const Slide &slide) const
{
    const Entry *known = m_entries.object(slide.id);
    return known && known->key.design == slide.design ? known->notice : QString();
}

QPixmap SlideThumbnails::made(const Key &key) const
{
    QImage image((QSizeF(size) * key.devicePixelRatio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(key.devicePixelRatio);
    image.fill(Qt::black);
    Slide slide;
    slide.design = key.design;
    QPainter painter(&image);
    SlideRendererView{.slide = slide}.paint(painter, {{0, 0}, size}, m_caches);
    painter.end();
    return QPixmap::fromImage(image);
}

} // namespace quenara
