#include "SlideBackgroundRenderView.h"

#include "DeviceLayer.h"
#include "GaussianBlur.h"
#include "ImageElementRenderView.h"
#include "PictureCache.h"
#include "SlideFonts.h"

#include <QLinearGradient>
#include <QRadialGradient>

#include <algorithm>

namespace quenara {

namespace {

constexpr double radialEndRadius = 760; // canvas units
constexpr double captionSize = 28; // canvas units
constexpr float captionOpacity = 0.38F;

QGradient gradientOver(const QRectF &slide, GradientDirection direction, double scale)
{
    switch (direction) {
    case GradientDirection::vertical:
        return QLinearGradient(slide.center().x(), slide.top(), slide.center().x(), slide.bottom());
    case GradientDirection::horizontal:
        return QLinearGradient(slide.left(), slide.center().y(), slide.right(), slide.center().y());
    case GradientDirection::diagonal:
        return QLinearGradient(slide.topLeft(), slide.bottomRight());
    case GradientDirection::radialHint:
        break;
    }
    return QRadialGradient(slide.center(), radialEndRadius * scale);
}

void paintCaption(QPainter &painter, const QRectF &slide, double scale)
{
    painter.save();
    painter.translate(slide.center());
    painter.scale(scale, scale);
    painter.setFont(systemFont(captionSize, QFont::DemiBold));
    painter.setPen(QColor::fromRgbF(1, 1, 1, captionOpacity));
    const QRectF line(-slide.width() / 2 / scale, -captionSize, slide.width() / scale,
                      2 * captionSize);
    painter.drawText(line, Qt::AlignCenter, QStringLiteral("Video Background"));
    painter.restore();
}

} // namespace

QBrush SlideBackgroundRenderView::gradientFill(const QRectF &slide) const
{
    if (!background.gradient)
        return background.solidColor.toColor();
    QGradient gradient = gradientOver(slide, background.gradient->direction, scale);
    gradient.setColorAt(0, background.gradient->startColor.toColor());
    gradient.setColorAt(1, background.gradient->endColor.toColor());
    return gradient;
}

bool SlideBackgroundRenderView::paintPicture(QPainter &painter, const QRectF &slide) const
{
    const double device = deviceScale(painter);
    const BlurPlan blur(background.blurAmount * device * scale);
    const QSizeF size = slide.size() * device / blur.reduction;
    const QImage image = pictureOf(*background.image, size.toSize(), pictures);
    if (image.isNull())
        return false;
    if (blur.isNone()) {
        painter.drawImage(slide, image, fillingPart(image.size(), slide));
        return true;
    }
    const QRectF part(QPointF(), size);
    QImage reduced(part.toAlignedRect().size(), QImage::Format_ARGB32_Premultiplied);
    reduced.fill(Qt::transparent);
    QPainter reducedPainter(&reduced);
    reducedPainter.setRenderHint(QPainter::SmoothPixmapTransform);
    reducedPainter.drawImage(part, image, fillingPart(image.size(), part));
    reducedPainter.end();
    painter.drawImage(slide, gaussianBlurred(reduced, blur.sigma), part);
    return true;
}

void SlideBackgroundRenderView::paint(QPainter &painter, const QRectF &slide) const
{
    if (slide.isEmpty() || scale <= 0)
        return;
    const bool isImage = background.kind == SlideBackgroundKind::image;
    if (!isImage || !background.image || !paintPicture(painter, slide)) {
        const bool isGradient = isImage || background.kind == SlideBackgroundKind::gradient;
        painter.fillRect(slide, isGradient ? gradientFill(slide) : background.solidColor.toColor());
    }
    if (background.kind == SlideBackgroundKind::video)
        paintCaption(painter, slide, scale);
    if (background.dimAmount > 0) {
        painter.fillRect(slide,
                         QColor::fromRgbF(0, 0, 0, float(std::min(1.0, background.dimAmount))));
    }
}

} // namespace quenara
