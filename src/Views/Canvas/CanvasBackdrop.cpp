#include "CanvasBackdrop.h"

#include "DeviceLayer.h"
#include "DevicePixels.h"
#include "GaussianBlur.h"

#include <QPainter>

namespace quenara {

namespace {

// Points
constexpr double shadowRadius = 18;
constexpr double shadowOffset = 10;

double shadowOpacity(ColorScheme scheme)
{
    return scheme == ColorScheme::dark ? 0.45 : 0.18;
}

} // namespace

QImage canvasBackdrop(const QSize &size, double devicePixelRatio, const QRectF &slide,
                      ColorScheme scheme)
{
    QImage backdrop(size * devicePixelRatio, QImage::Format_RGB32);
    backdrop.setDevicePixelRatio(devicePixelRatio);
    backdrop.fill(ZelvoTheme::current(scheme).canvasBackground);
    QPainter painter(&backdrop);
    painter.translate(0, shadowOffset);
    const BlurPlan plan(shadowRadius / 2 * deviceScale(painter));
    DeviceLayer shadow = DeviceLayer::painted(
        painter, slide, plan.reach, [&](QPainter &layer) { layer.fillRect(slide, Qt::black); },
        plan.reduction);
    // Black is all alpha.
    shadow.image = gaussianBlurred(shadow.image.convertToFormat(QImage::Format_Alpha8), plan.sigma);
    shadow.draw(painter, shadowOpacity(scheme));
    return backdrop;
}

} // namespace quenara
