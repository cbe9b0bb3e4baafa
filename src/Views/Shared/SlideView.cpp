#include "SlideView.h"

#include "BoundedNumbers.h"
#include "DeviceLayer.h"
#include "DevicePixels.h"
#include "SlideRendererView.h"
#include "ThemeColors.h"

#include <QPainter>
#include <QStyle>

namespace quenara {

SlideView::SlideView(RenderCaches &caches, QWidget *parent) : QWidget(parent), m_caches(caches) {}

void SlideView::setSlide(const std::optional<Slide> &slide)
{
    if (slide == m_slide)
        return;
    update(slideRect());
    m_slide = slide;
    update(slideRect());
}

void SlideView::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    update();
}

void SlideView::setCornerRadius(double radius)
{
    m_cornerRadius = radius;
    update();
}

void SlideView::setLineWidth(double width)
{
    m_lineWidth = width;
    update();
}

void SlideView::setOutline(QColor ZelvoTheme::*color, double opacity)
{
    m_outlineColor = color;
    m_outlineOpacity = opacity;
    update();
}

QRect SlideView::slideRect() const
{
    const CanvasSize canvas = m_slide ? paintedSize(m_slide->design.canvasSize) : CanvasSize();
    if (!(canvas.width > 0) || !(canvas.height > 0))
        return {};
    const QSize fitted =
        SlideRendererView::fittedRect(size(), canvas.width / canvas.height).size().toSize();
    return QStyle::alignedRect(Qt::LeftToRight, m_alignment, fitted, rect());
}

void SlideView::paintEvent(QPaintEvent * /*event*/)
{
    const QRectF area = slideRect();
    if (area.isEmpty())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    // The corners are cut afterwards: to paint through a clip with round corners takes longer.
    DeviceLayer slide = DeviceLayer::painted(painter, area, 0, [&](QPainter &layer) {
        SlideRendererView{.slide = m_slide}.paint(layer, area, m_caches);
    });
    const double scale = deviceScale(painter);
    QColor line = themeOf(*this).*m_outlineColor;
    line.setAlphaF(line.alphaF() * float(m_outlineOpacity));
    m_frame.apply(slide.image,
                  {.rect = painter.deviceTransform().mapRect(area).translated(-slide.origin),
                   .radius = m_cornerRadius * scale,
                   .lineWidth = m_lineWidth * scale},
                  line);
    slide.draw(painter, 1);
}

} // namespace quenara
