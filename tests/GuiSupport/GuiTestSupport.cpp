#include "GuiTestSupport.h"

#include "AccessibleControls.h"
#include "InterfaceStyle.h"
#include "RenderCaches.h"

#include <QBuffer>
#include <QRegularExpression>

#include <algorithm>
#include <cstdlib>

namespace quenara::test {

std::unique_ptr<RenderCaches> GuiTest::keptCaches;

GuiTest::~GuiTest()
{
    keptCaches.reset();
}

RenderCaches &GuiTest::caches()
{
    if (!keptCaches)
        keptCaches = std::make_unique<RenderCaches>();
    return *keptCaches;
}

void GuiTest::init()
{
    QTest::failOnWarning(QRegularExpression(
        QStringLiteral("^(?!This plugin does not support "
                       "(propagateSizeHints\\(\\)|raise\\(\\)|grabbing the keyboard)).*$")));
}

void setUpApplication()
{
    setUpInterface();
    makeControlsAccessible();
    ZelvoImageLoader::limitMemory();
}

void paintAnew(const SlideRendererView &view, QPainter &painter, const QRectF &area)
{
    RenderCaches caches;
    view.paint(painter, area, caches);
}

QImage rendered(const SlideRendererView &view, const QSize &size, double devicePixelRatio)
{
    RenderCaches caches;
    return rendered(view, size, devicePixelRatio, caches);
}

QImage rendered(const SlideRendererView &view, const QSize &size, double devicePixelRatio,
                RenderCaches &caches)
{
    QImage image(size * devicePixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(magenta);
    QPainter painter(&image);
    view.paint(painter, QRectF(QPointF(), size), caches);
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}

int largestDifference(const QImage &a, const QImage &b)
{
    constexpr int worst = 255;
    if (a.size() != b.size())
        return worst;
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            largest =
                std::max({largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                          std::abs(qBlue(p) - qBlue(q)), std::abs(qAlpha(p) - qAlpha(q))});
        }
    }
    return largest;
}

QRect inkOf(const QImage &image)
{
    constexpr int faint = 40;
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(line[x]) > faint)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

SlideDesign designOver(const SlideBackground &background)
{
    SlideDesign design;
    design.background = background;
    return design;
}

Slide slideWith(const SlideDesign &design)
{
    return {.id = QStringLiteral("slide"),
            .title = {},
            .body = {},
            .orderIndex = 0,
            .footer = {},
            .image = {},
            .audio = {},
            .design = design};
}

SlideBackground solidBackground(const RGBAColor &color)
{
    SlideBackground background;
    background.solidColor = color;
    return background;
}

SlideElement rectangleLayer(const QString &id, const CanvasFrame &frame, const RGBAColor &fill,
                            int zIndex)
{
    SlideElement element;
    element.id = id;
    element.kind = SlideElementKind::shape;
    element.frame = frame;
    element.zIndex = zIndex;
    element.shape = ShapeProperties{.kind = ShapeKind::rectangle,
                                    .fill = fill,
                                    .stroke = {},
                                    .strokeWidth = 0,
                                    .cornerRadius = 0};
    return element;
}

SlideMedia solidImage(const QSize &size, const QColor &color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return {.dataUrl = "data:image/png;base64," + buffer.data().toBase64(),
            .name = QStringLiteral("image.png"),
            .mimeType = QStringLiteral("image/png")};
}

} // namespace quenara::test
