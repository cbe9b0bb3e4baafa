#include "CanvasBenchmarks.h"

#include "BenchCommands.h"
#include "CanvasHand.h"
#include "DesignCanvasView.h"
#include "Photograph.h"
#include "ProjectTemplates.h"
#include "RenderCaches.h"

#include <QApplication>
#include <QPainter>

namespace quenara::bench {

namespace {

constexpr QSize windowSize{1480, 900};
constexpr QRect canvasPlace{286, 52, 854, 715};
constexpr int stepCount = 400;
constexpr double dragLimit = 8e6; ///< nanoseconds
constexpr double photographLimit = 16e6;
constexpr double heapLimit = 64.0 * 1024;

Slide slideOnPhotograph()
{
    Slide slide = lyricSlide();
    slide.design.background.kind = SlideBackgroundKind::image;
    slide.design.background.image = photograph();
    slide.design.background.blurAmount = 20;
    return slide;
}

ZelvoProject projectOf(const Slide &slide)
{
    ZelvoProject project = ProjectTemplates::demoProject(QDateTime::currentDateTimeUtc());
    project.serviceItems.first().slides.first() = slide;
    return project;
}

/// An operator window with nothing but its canvas; the lyric of its slide is selected.
class Canvas
{
public:
    explicit Canvas(const Slide &slide) : m_workspace(projectOf(slide))
    {
        m_window.resize(windowSize);
        m_view.setParent(&m_window);
        m_view.setGeometry(canvasPlace);
        m_window.show();
        QCoreApplication::processEvents();
    }

    CanvasHand &hand() { return m_hand; }

    double timeOfFilling()
    {
        QImage image(canvasPlace.size(), QImage::Format_RGB32);
        return nanosecondsOf([&] { QPainter(&image).fillRect(image.rect(), Qt::darkBlue); }, [] {});
    }

private:
    BenchCommands m_workspace;
    RenderCaches m_caches;
    QWidget m_window;
    DesignCanvasView m_view{m_workspace.store, m_workspace.commands, m_caches};
    CanvasHand m_hand{m_workspace.store, m_view, [] { QCoreApplication::sendPostedEvents(); }};
};

Figure figure(const char *name, const Slide &slide, void (CanvasHand::*begin)(),
              void (CanvasHand::*step)(), double limit)
{
    Canvas canvas(slide);
    (canvas.hand().*begin)();
    Times times;
    for (int i = 0; i < stepCount; ++i)
        times.measure([&] { (canvas.hand().*step)(); });
    return {.name = QString::fromLatin1(name),
            .value = times.within(0.99),
            .yardstickName = QStringLiteral("a solid fill of the canvas"),
            .yardstick = canvas.timeOfFilling(),
            .limit = limit};
}

Figure heapGrowth()
{
    Canvas canvas(lyricSlide());
    canvas.hand().beginDrag();
    const auto drag = [&] {
        for (int i = 0; i < stepCount; ++i)
            canvas.hand().drag();
    };
    drag();
    const double before = heapInUse();
    drag();
    drag();
    return {.name = QStringLiteral("heap growth of %1 steps of a drag").arg(2 * stepCount),
            .value = heapInUse() - before,
            .yardstickName = QStringLiteral("heap of the whole program"),
            .yardstick = before,
            .unit = Figure::Unit::bytes,
            .limit = heapLimit};
}

} // namespace

QList<Figure> canvasFigures()
{
    const Slide lyric = lyricSlide();
    const Slide onPhotograph = slideOnPhotograph();
    return {
        figure("99 of 100 steps of a lyric's drag", lyric, &CanvasHand::beginDrag,
               &CanvasHand::drag, dragLimit),
        figure("99 of 100 over a blurred photograph", onPhotograph, &CanvasHand::beginDrag,
               &CanvasHand::drag, photographLimit),
        figure("99 of 100 letters typed on the canvas", lyric, &CanvasHand::beginTyping,
               &CanvasHand::type, dragLimit),
        figure("99 of 100 over a blurred photograph", onPhotograph, &CanvasHand::beginTyping,
               &CanvasHand::type, photographLimit),
        heapGrowth(),
    };
}

} // namespace quenara::bench
