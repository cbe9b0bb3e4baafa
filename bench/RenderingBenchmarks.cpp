#include "RenderingBenchmarks.h"

#include "Photograph.h"
#include "ProjectTemplates.h"
#include "RenderCaches.h"
#include "SlideRendererView.h"

#include <QPainter>

#include <algorithm>

namespace quenara::bench {

namespace {

constexpr QSize fullHD{1920, 1080};
constexpr QSize ultraHD{3840, 2160};
constexpr QSize thumbnail{64, 36};
constexpr double millisecond = 1e6;

double timeOfPainting(const QSize &size, const std::function<void(QPainter &)> &paint)
{
    QImage frame(size, QImage::Format_RGB32);
    frame.fill(Qt::black);
    return nanoseconds([&](benchmark::State &state) {
        for ([[maybe_unused]] auto iteration : state) {
            QPainter painter(&frame);
            paint(painter);
        }
    });
}

/// Frames of one size beside a plain fill of it.
class Frames
{
public:
    explicit Frames(const QSize &size)
        : m_size(size), m_fill(timeOfPainting(size, [size](QPainter &painter) {
              painter.fillRect(QRect(QPoint(), size), Qt::darkBlue);
          }))
    {}

    Figure figure(const QString &name, const Slide &slide, double limit)
    {
        return {
            .name =
                QStringLiteral("%1, %2 x %3").arg(name).arg(m_size.width()).arg(m_size.height()),
            .value = timeOfPainting(m_size,
                                    [&](QPainter &painter) {
                                        SlideRendererView{.slide = slide}.paint(
                                            painter, QRectF(QPointF(), m_size), m_caches);
                                    }),
            .yardstickName = QStringLiteral("a solid fill"),
            .yardstick = m_fill,
            .limit = limit * millisecond};
    }

private:
    QSize m_size;
    double m_fill;
    RenderCaches m_caches;
};

Slide slideOf(const QString &templateID)
{
    Slide slide = ProjectTemplates::slide(
        QStringLiteral("Evening"),
        QStringLiteral("The river carries morning light\nAnd every hill begins to sing\n"
                       "We gather what the day has sown\nAnd quiet evening brings it home"),
        0, templateID);
    for (SlideElement &element : slide.design.elements) {
        if (element.text && !element.text->shadow)
            element.text->shadow = TextShadow{RGBAColor(0, 0, 0, 0.6), 18, 0, 6};
    }
    return slide;
}

Slide slideOnPhotograph()
{
    Slide slide = slideOf(QStringLiteral("imageBackgroundLyric"));
    slide.design.background.kind = SlideBackgroundKind::image;
    slide.design.background.image = photograph();
    slide.design.background.blurAmount = 20;
    slide.design.background.dimAmount = 0.48;
    return slide;
}

Slide slideOfLayers(int count)
{
    Slide slide = slideOf(QStringLiteral("minimalDark"));
    const SlideElement layer = slide.design.elements.constFirst();
    slide.design.elements.clear();
    for (int i = 0; i < count; ++i) {
        SlideElement element = layer;
        const int column = i % 20;
        const int row = i / 20;
        element.frame = {column * 90.0, row * 100.0, 180, 90};
        element.text->fontSize = 24;
        element.text->text = QStringLiteral("Layer %1").arg(i);
        slide.design.elements.append(element);
    }
    return slide;
}

} // namespace

QList<Figure> renderingFigures()
{
    Frames smallFrames(thumbnail);
    Frames frames(fullHD);
    Frames largeFrames(ultraHD);
    QList<Figure> figures;
    for (const SlideTemplate &item : ProjectTemplates::templates()) {
        const Slide slide = slideOf(item.id);
        figures += {frames.figure(item.id, slide, 8), largeFrames.figure(item.id, slide, 24),
                    smallFrames.figure(item.id, slide, 0.7)};
    }
    const Slide onPhotograph = slideOnPhotograph();
    figures += {frames.figure(QStringLiteral("blurred photograph"), onPhotograph, 12),
                largeFrames.figure(QStringLiteral("blurred photograph"), onPhotograph, 40),
                frames.figure(QStringLiteral("200 layers"), slideOfLayers(200), 60),
                frames.figure(QStringLiteral("100 layers"), slideOfLayers(100), 60)};
    std::stable_sort(figures.begin(), figures.end(),
                     [](const Figure &a, const Figure &b) { return a.yardstick > b.yardstick; });
    return figures;
}

} // namespace quenara::bench
