#include "SlideView.h"

#include "SlideRendererView.h"

#include <QPainter>

namespace quenara {

SlideView::SlideView(QWidget *parent) : QWidget(parent) {}

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
    SlideRendererView{.slide = m_slide}.paint(painter, rect());
}

} // namespace quenara
