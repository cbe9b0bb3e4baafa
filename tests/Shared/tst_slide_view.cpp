#include "GuiTestSupport.h"
#include "InterfaceStyle.h"
#include "ProjectTemplates.h"
#include "RenderCaches.h"
#include "SlideView.h"
#include "TestSupport.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_slide_view {

namespace {

constexpr QSize room(480, 270);
constexpr int lineWidth = 1;
constexpr int rounding = 1; // what painting through a clip path may change

/// Its words have a shadow, and a line below them is translucent.
Slide lyricSlide()
{
    return ProjectTemplates::slide(QStringLiteral("Verse"),
                                   QStringLiteral("Great is the morning\nBright with mercy"), 0,
                                   QStringLiteral("centerLyric"));
}

Slide slideOfShape(const CanvasSize &canvas)
{
    Slide slide = slideWith(designOver(solidBackground({1, 1, 1, 1})));
    slide.design.canvasSize = canvas;
    return slide;
}

struct Preview
{
    RenderCaches caches;
    SlideView view{caches};

    explicit Preview(const std::optional<Slide> &slide = lyricSlide(), const QSize &size = room)
    {
        view.setSlide(slide);
        view.resize(size);
        view.setPalette(interfacePalette(ZelvoTheme::dark()));
    }

    QImage image() { return view.grab().toImage().convertToFormat(QImage::Format_ARGB32); }
};

/// Without the outline, which the widget draws over the renderer's image.
QImage inside(const QImage &image)
{
    return image.copy(image.rect().adjusted(lineWidth, lineWidth, -lineWidth, -lineWidth));
}

} // namespace

class TestSlideView : public GuiTest
{
    Q_OBJECT

private slots:
    void itShowsWhatTheRendererPaints()
    {
        Preview preview;
        QVERIFY(largestDifference(inside(preview.image()),
                                  inside(rendered({.slide = lyricSlide()}, room)))
                <= rounding);
    }

    void itShowsTheSameWhereverItLiesInItsWindow()
    {
        QWidget window;
        window.resize(900, 800);
        Preview preview;
        const QImage alone = preview.image();
        window.setPalette(preview.view.palette());
        preview.view.setParent(&window);
        for (const QPoint &place : {QPoint(0, 0), QPoint(13, 271), QPoint(400, 500)}) {
            preview.view.move(place);
            const QImage whole = window.grab().toImage().convertToFormat(QImage::Format_ARGB32);
            QCOMPARE(largestDifference(whole.copy(QRect(place, room)), alone), 0);
        }
    }

    void theImageKeepsItsShapeWhereItIsToLie_data()
    {
        QTest::addColumn<CanvasSize>("canvas");
        QTest::addColumn<Qt::Alignment>("alignment");
        QTest::addColumn<QRect>("expected");
        const Qt::Alignment middle = Qt::AlignCenter;
        const Qt::Alignment leading = Qt::AlignLeft | Qt::AlignVCenter;
        QTest::newRow("wide, in the middle")
            << CanvasSize{1920, 1080} << middle << QRect(96, 0, 409, 230);
        QTest::newRow("wide, leading")
            << CanvasSize{1920, 1080} << leading << QRect(0, 0, 409, 230);
        QTest::newRow("square, leading")
            << CanvasSize{500, 500} << leading << QRect(0, 0, 230, 230);
        QTest::newRow("very wide, leading")
            << CanvasSize{6000, 1000} << leading << QRect(0, 65, 600, 100);
        QTest::newRow("upright, in the middle")
            << CanvasSize{900, 1800} << middle << QRect(243, 0, 115, 230);
    }

    void theImageKeepsItsShapeWhereItIsToLie()
    {
        QFETCH(CanvasSize, canvas);
        QFETCH(Qt::Alignment, alignment);
        QFETCH(QRect, expected);
        Preview preview(slideOfShape(canvas), {600, 230});
        preview.view.setAlignment(alignment);
        QCOMPARE(preview.view.slideRect(), expected);
        const QImage image = preview.image();
        QCOMPARE(image.pixel(expected.center()), qRgb(255, 255, 255));
        QCOMPARE(image.pixelColor(expected.center().x(), expected.top()),
                 ZelvoTheme::dark().border);
        QCOMPARE(image.pixelColor(expected.right(), expected.center().y()),
                 ZelvoTheme::dark().border);
    }

    void withoutASlideTheImageIsBlack()
    {
        Preview preview(std::nullopt);
        QCOMPARE(preview.image().pixel(240, 135), qRgb(0, 0, 0));
        QCOMPARE(preview.image().pixelColor(240, 0), ZelvoTheme::dark().border);
    }

    void aSlideWithoutASizeIsNoImage()
    {
        for (const CanvasSize &canvas : {CanvasSize{0, 1080}, CanvasSize{1920, -1}}) {
            Preview preview(slideOfShape(canvas));
            QVERIFY(preview.view.slideRect().isEmpty());
            QCOMPARE(preview.image().pixelColor(240, 135), ZelvoTheme::dark().appBackground);
        }
    }

    void cornersAreRoundAndNothingOfTheImageIsSeenBeyondThem()
    {
        constexpr double radius = 8;
        Preview preview(slideOfShape({1920, 1080}));
        preview.view.setCornerRadius(radius);
        const QImage image = preview.image();
        const QColor around = ZelvoTheme::dark().appBackground;
        const QSize size = image.size();
        for (const QPoint &corner :
             {QPoint(0, 0), QPoint(size.width() - 1, 0), QPoint(0, size.height() - 1),
              QPoint(size.width() - 1, size.height() - 1)})
            QCOMPARE(image.pixelColor(corner), around);
        // Along the diagonal the line is the first that differs, and it is darker than the slide.
        int first = 0;
        while (image.pixelColor(first, first) == around)
            ++first;
        QCOMPARE(first, 2);
        QVERIFY(image.pixelColor(first, first).lightness() < 128);
        QCOMPARE(image.pixel(6, 6), qRgb(255, 255, 255));
    }

    void itIsSharpAtTwoPixelsAPoint()
    {
        Preview preview;
        QImage image(room * 2, QImage::Format_ARGB32);
        image.setDevicePixelRatio(2);
        image.fill(magenta);
        preview.view.render(&image);
        constexpr int line = 2 * lineWidth;
        const QRect within = image.rect().adjusted(line, line, -line, -line);
        QVERIFY(largestDifference(image.copy(within),
                                  rendered({.slide = lyricSlide()}, room, 2).copy(within))
                <= rounding);
    }
};

QUENARA_GUI_TEST(TestSlideView)

} // namespace tst_slide_view

#include "tst_slide_view.moc"
