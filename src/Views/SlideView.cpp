#include "SlideView.h"

#include "SlideRendererView.h"
#include "ZelvoTheme.h"

#include <QPainter>

namespace quenara {

SlideView::SlideView(PictureCache &pictures, QWidget *parent)
    : QWidget(parent), m_pictures(pictures)
{}

void SlideView::setSlide(const std::optional<Slide> &slide)
{
    if (slide == m_slide)
        return;
    m_slide = slide;
    update();
}

void SlideView::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    SlideRendererView{.slide = m_slide, .pictures = &m_pictures}.paint(painter, rect());
    const CanvasSize canvas = m_slide ? m_slide->design.canvasSize : CanvasSize();
    if (!(canvas.width > 0) || !(canvas.height > 0))
        return;
    painter.setPen(ZelvoTheme::current(colorSchemeOf(palette())).border);
    painter.drawRect(SlideRendererView::fittedRect(size(), canvas.width / canvas.height)
                         .adjusted(0.5, 0.5, -0.5, -0.5));
}

} // namespace quenara
