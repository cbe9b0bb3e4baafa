#include "SlideBackgroundRenderView.h"

#include "DarkenedImage.h"
#include "DevicePixels.h"
#include "Fonts.h"
#include "GaussianBlur.h"
#include "GradientFill.h"
#include "RenderCaches.h"

#include <algorithm>

namespace quenara {

namespace {

constexpr double radialEndRadius = 760; // canvas units
constexpr double captionSize = 28; // canvas units
constexpr float captionOpacity = 0.38F;

constexpr double widestSigma = 100; // pixels; nothing is left of an image that is blurred by more

} // namespace

double SlideBackgroundRenderView::dim() const
{
    return background.dimAmount > 0 ? std::min(1.0, background.dimAmount) : 0;
}

QColor SlideBackgroundRenderView::darkened(const RGBAColor &color) const
{
    const QColor bright = color.toColor();
    // The black over a translucent colour covers what shows through it, too.
    const float alpha = bright.alphaF() + float(dim()) * (1 - bright.alphaF());
    if (!(alpha > 0))
        return Qt::transparent;
    const float left = bright.alphaF() * float(1 - dim()) / alpha;
    return QColor::fromRgbF(left * bright.redF(), left * bright.greenF(), left * bright.blueF(),
                            alpha);
}

void SlideBackgroundRenderView::paintGradient(QPainter &painter, const QRectF &slide) const
{
    if (const auto &gradient = background.gradient) {
        GradientFill{.direction = gradient->direction,
                     .start = darkened(gradient->startColor),
                     .end = darkened(gradient->endColor),
                     .endRadius = radialEndRadius * scale}
            .paint(painter, slide);
    } else {
        painter.fillRect(slide, darkened(background.solidColor));
    }
}

void SlideBackgroundRenderView::paintCaption(QPainter &painter, const QRectF &slide) const
{
    painter.save();
    painter.translate(slide.center());
    painter.scale(scale, scale);
    painter.setFont(systemFont(captionSize, QFont::DemiBold));
    const auto bright = float(1 - dim());
    painter.setPen(QColor::fromRgbF(bright, bright, bright, captionOpacity));
    const QRectF line(-slide.width() / 2 / scale, -captionSize, slide.width() / scale,
                      2 * captionSize);
    painter.drawText(line, Qt::AlignCenter, QStringLiteral("Video Background"));
    painter.restore();
}

bool SlideBackgroundRenderView::paintImage(QPainter &painter, const QRectF &slide,
                                           RenderCaches &caches) const
{
    const BlurPlan blur(background.blurAmount * scale);
    const QSize area = wholePixels(slide.size() / blur.reduction).expandedTo({1, 1});
    const double sigma =
        std::min(widestSigma, blur.sigma * blur.reduction * area.width() / slide.width());
    const ImageFill fill{.area = area, .blur = sigma};
    const FilledImage filled = caches.images.filling(*background.image, fill);
    if (filled.image.isNull())
        return false;
    paintFilling(painter, slide, filled.placeIn(slide, fill), filled.image);
    return true;
}

/// \a place may reach beyond the slide.
void SlideBackgroundRenderView::paintFilling(QPainter &painter, const QRectF &slide,
                                             const QRectF &place, const QImage &image) const
{
    if (dim() > 0 && reachableArea.contains(slide) && !isOnPage(painter)) {
        DarkenedImage{image, dim()}.paint(painter, place, slide.toRect());
    } else {
        painter.setClipRect(slide, Qt::IntersectClip);
        painter.drawImage(place, image);
        painter.fillRect(slide, QColor::fromRgbF(0, 0, 0, float(dim())));
    }
}

bool SlideBackgroundRenderView::isOpaque() const
{
    const auto isWhole = [](const RGBAColor &color) { return color.alpha >= 1; };
    switch (background.kind) {
    case SlideBackgroundKind::image:
        return false;
    case SlideBackgroundKind::gradient:
        return background.gradient
            ? isWhole(background.gradient->startColor) && isWhole(background.gradient->endColor)
            : isWhole(background.solidColor);
    case SlideBackgroundKind::solid:
    case SlideBackgroundKind::video:
        return isWhole(background.solidColor);
    }
    Q_UNREACHABLE();
}

void SlideBackgroundRenderView::paint(QPainter &painter, const QRectF &slide,
                                      RenderCaches &caches) const
{
    if (slide.isEmpty() || scale <= 0)
        return;
    const QRectF pixels = touchedPixels(painter, slide);
    const SlideBackgroundRenderView inPixels{background, scale * deviceScale(painter)};
    painter.save();
    useDevicePixels(painter);
    inPixels.paintPixels(painter, pixels, caches);
    painter.restore();
}

void SlideBackgroundRenderView::paintPixels(QPainter &painter, const QRectF &slide,
                                            RenderCaches &caches) const
{
    switch (background.kind) {
    case SlideBackgroundKind::solid:
        painter.fillRect(slide, darkened(background.solidColor));
        break;
    case SlideBackgroundKind::video:
        painter.fillRect(slide, darkened(background.solidColor));
        paintCaption(painter, slide);
        break;
    case SlideBackgroundKind::image:
        if (background.image && paintImage(painter, slide, caches))
            break;
        [[fallthrough]];
    case SlideBackgroundKind::gradient:
        paintGradient(painter, slide);
        break;
    }
}

} // namespace quenara
