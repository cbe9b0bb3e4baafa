#include "CanvasBenchmarks.h"

#include "BenchStore.h"
#include "CanvasTextLayerEditor.h"
#include "DesignCanvasView.h"
#include "InterfaceStyle.h"
#include "Photograph.h"
#include "PictureCache.h"
#include "ProjectTemplates.h"
#include "SlideCanvas.h"
#include "SlideFonts.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace quenara::bench {

namespace {

constexpr QSize windowSize{1480, 900};
constexpr QRect canvasPlace{286, 52, 854, 715};
constexpr int stepCount = 400;
constexpr double dragLimit = 8e6; ///< nanoseconds
constexpr double photographLimit = 16e6;
constexpr double heapLimit = 64.0 * 1024;

Slide lyricSlide()
{
    return ProjectTemplates::slide(QStringLiteral("Evening"),
                                   QStringLiteral("The river carries morning light\n"
                                                  "And every hill begins to sing"),
                                   0, QStringLiteral("lowerLyric"));
}

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

    void beginDrag() { mouse(QEvent::MouseButtonPress, middle()); }
    void beginTyping() { mouse(QEvent::MouseButtonDblClick, middle()); }

    /// Round and round, so that every step is another place.
    void drag()
    {
        const double angle = 0.3 * ++m_stepNumber;
        mouse(QEvent::MouseMove, middle() + 90 * QPointF(std::cos(angle), std::sin(angle)));
        repaint();
    }

    void type()
    {
        const bool isBreak = ++m_stepNumber % 20 == 0;
        QKeyEvent key(QEvent::KeyPress, isBreak ? Qt::Key_Return : Qt::Key_A, Qt::NoModifier,
                      isBreak ? QStringLiteral("\r") : QStringLiteral("a"));
        QApplication::sendEvent(m_view.findChild<CanvasTextLayerEditor *>(), &key);
        if (m_stepNumber % 100 == 0)
            m_workspace.store.undo();
        repaint();
    }

    double timeOfFilling()
    {
        QImage image(canvasPlace.size(), QImage::Format_RGB32);
        return nanosecondsOf([&] { QPainter(&image).fillRect(image.rect(), Qt::darkBlue); }, [] {});
    }

private:
    QPointF middle()
    {
        if (!m_middle) {
            const CanvasFrame frame = m_workspace.store.selectedElement()->frame;
            const QRectF slide = m_canvas->slideRect();
            m_middle = slide.topLeft()
                + QPointF(frame.midX(), frame.midY()) * slide.width() / CanvasSize().width;
        }
        return *m_middle;
    }

    void mouse(QEvent::Type type, const QPointF &point)
    {
        QMouseEvent event(type, point, m_canvas->mapToGlobal(point), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(m_canvas, &event);
    }

    void repaint() { QCoreApplication::sendPostedEvents(); }

    BenchStore m_workspace;
    PictureCache m_pictures;
    QWidget m_window;
    DesignCanvasView m_view{m_workspace.store, m_pictures};
    SlideCanvas *m_canvas = m_view.findChild<SlideCanvas *>();
    std::optional<QPointF> m_middle;
    int m_stepNumber = 0;
};

Figure figure(const char *name, const Slide &slide, void (Canvas::*begin)(), void (Canvas::*step)(),
              double limit)
{
    Canvas canvas(slide);
    (canvas.*begin)();
    Times times;
    for (int i = 0; i < stepCount; ++i)
        times.measure([&] { (canvas.*step)(); });
    return {.name = QString::fromLatin1(name),
            .value = times.within(0.99),
            .yardstickName = QStringLiteral("a solid fill of the canvas"),
            .yardstick = canvas.timeOfFilling(),
            .limit = limit};
}

Figure heapGrowth()
{
    Canvas canvas(lyricSlide());
    canvas.beginDrag();
    const auto drag = [&] {
        for (int i = 0; i < stepCount; ++i)
            canvas.drag();
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
    loadBundledFonts();
    QApplication::setFont(systemFont(13, QFont::Normal));
    QApplication::setPalette(interfacePalette(ZelvoTheme::dark()));
    qApp->setStyleSheet(interfaceStyleSheet(ZelvoTheme::dark()));
    const Slide lyric = lyricSlide();
    const Slide onPhotograph = slideOnPhotograph();
    return {
        figure("99 of 100 steps of a lyric's drag", lyric, &Canvas::beginDrag, &Canvas::drag,
               dragLimit),
        figure("99 of 100 over a blurred photograph", onPhotograph, &Canvas::beginDrag,
               &Canvas::drag, photographLimit),
        figure("99 of 100 letters typed on the canvas", lyric, &Canvas::beginTyping, &Canvas::type,
               dragLimit),
        figure("99 of 100 over a blurred photograph", onPhotograph, &Canvas::beginTyping,
               &Canvas::type, photographLimit),
        heapGrowth(),
    };
}

} // namespace quenara::bench
