#include "GuiTestSupport.h"
#include "ProjectTemplates.h"
#include "RenderCaches.h"
#include "SlideImage.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_slide_image {

namespace {

constexpr QSize area(960, 540);
constexpr int rounding = 2; // where something translucent is laid over what lies around

/// Words with a shadow over an image, shapes below and above them.
Slide layeredSlide()
{
    Slide slide = ProjectTemplates::slide(QStringLiteral("Verse"),
                                          QStringLiteral("Great is the morning\nBright with mercy"),
                                          0, QStringLiteral("centerLyric"));
    slide.design.background.kind = SlideBackgroundKind::image;
    slide.design.background.image = solidImage({64, 36}, Qt::darkCyan);
    slide.design.elements = {
        slide.design.elements.constFirst(),
        rectangleLayer(QStringLiteral("low"), {300, 300, 600, 300}, {1, 0, 0, 0.5}, -5),
        rectangleLayer(QStringLiteral("high"), {900, 400, 600, 300}, {0, 1, 0, 0.5}, 50)};
    slide.design.elements[0].id = QStringLiteral("words");
    slide.design.elements[0].rotation = 5;
    slide.design.elements[2].opacity = 0.7;
    return slide;
}

SlideElement &layer(Slide &slide, const QString &id, const Caller &caller = Caller::current())
{
    for (SlideElement &element : slide.design.elements) {
        if (element.id == id)
            return element;
    }
    fail(QStringLiteral("there is no layer \"%1\"").arg(id), caller);
}

/// A slide image, beside what the renderer paints of the same slide.
struct Kept
{
    RenderCaches caches;
    SlideImage slideImage;
    Slide slide = layeredSlide();
    std::optional<QString> selectedElementID = QStringLiteral("words");
    QPointF topLeft;
    double width = 960;
    double devicePixelRatio = 1;

    QImage painted()
    {
        return imagePaintedBy([&](QPainter &painter) {
            slideImage.paint(painter,
                             {.slide = slide,
                              .scale = width / slide.design.canvasSize.width,
                              .showSafeArea = true,
                              .selectedElementID = selectedElementID},
                             topLeft, caches);
        });
    }

    QImage rendered() const
    {
        return imagePaintedBy([&](QPainter &painter) {
            const double height =
                width * slide.design.canvasSize.height / slide.design.canvasSize.width;
            paintAnew(
                {.slide = slide, .showSafeArea = true, .selectedElementID = selectedElementID},
                painter, QRectF(topLeft, QSizeF(width, height)));
        });
    }

    int difference() { return largestDifference(painted(), rendered()); }

private:
    QImage imagePaintedBy(const std::function<void(QPainter &)> &paint) const
    {
        QImage image(area * devicePixelRatio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(devicePixelRatio);
        image.fill(magenta);
        QPainter painter(&image);
        paint(painter);
        painter.end();
        return image.convertToFormat(QImage::Format_ARGB32);
    }
};

} // namespace

class TestSlideImage : public GuiTest
{
    Q_OBJECT

private slots:
    void everyChangeIsPaintedAsTheRendererPaintsIt()
    {
        Kept kept;
        QCOMPARE(kept.difference(), 0);
        const auto change = [&](const char *what, const std::function<void()> &how) {
            how();
            const int difference = kept.difference();
            if (difference > 0)
                qWarning("%s", what);
            QCOMPARE(difference, 0);
        };
        const auto move = [&](const char *id) {
            return [&kept, id] { layer(kept.slide, QLatin1String(id)).frame.x += 31; };
        };
        change("nothing", [] {});
        change("the highest layer moves", move("high"));
        change("and again", move("high"));
        change("the middle one moves", move("words"));
        change("and again", move("words"));
        change("the lowest one moves", move("low"));
        change("and again", move("low"));
        change("the highest one moves once more", move("high"));
        change("words", [&] { layer(kept.slide, QStringLiteral("words")).text->text = u'x'; });
        change("a layer hides", [&] { layer(kept.slide, QStringLiteral("low")).visible = false; });
        change("and comes back", [&] { layer(kept.slide, QStringLiteral("low")).visible = true; });
        change("the lowest comes to the top",
               [&] { layer(kept.slide, QStringLiteral("low")).zIndex = 99; });
        change("another layer", [&] {
            kept.slide.design.elements.append(
                rectangleLayer(QStringLiteral("new"), {0, 0, 500, 500}, {1, 1, 1, 1}, 10));
        });
        change("one layer less", [&] { kept.slide.design.elements.removeFirst(); });
        change("another selection", [&] { kept.selectedElementID = QStringLiteral("low"); });
        change("no selection", [&] { kept.selectedElementID.reset(); });
        change("the background", [&] { kept.slide.design.background.dimAmount = 0.7; });
        change("no guide", [&] { kept.slide.design.safeAreaEnabled = false; });
        change("another place", [&] { kept.topLeft = {13, 7}; });
        change("another size", [&] { kept.width = 480; });
        change("a square canvas", [&] { kept.slide.design.canvasSize = {1000, 1000}; });
        change("no layers", [&] { kept.slide.design.elements.clear(); });
        change("another slide", [&] { kept.slide = slideWith(designOver({})); });
    }

    void edgesThatFadeDifferByNoMoreThanRounding()
    {
        Kept kept;
        kept.slide.design.background.blurAmount = 20;
        QVERIFY(kept.difference() <= rounding);
        layer(kept.slide, QStringLiteral("words")).frame.y += 40;
        QVERIFY(kept.difference() <= rounding);
    }

    void theSlideMayLieBetweenPixels()
    {
        Kept kept;
        kept.topLeft = {24.25, 18.75};
        kept.width = 713;
        QVERIFY(kept.difference() <= rounding);
        layer(kept.slide, QStringLiteral("words")).frame.y += 40;
        QVERIFY(kept.difference() <= rounding);
    }

    void itIsSharpAtTwoPixelsAPoint()
    {
        Kept kept;
        kept.devicePixelRatio = 2;
        kept.width = 600;
        QCOMPARE(kept.difference(), 0);
        layer(kept.slide, QStringLiteral("words")).frame.y += 40;
        QCOMPARE(kept.difference(), 0);
    }

    void nothingIsPaintedOfASlideWithoutASize()
    {
        Kept kept;
        kept.width = 0;
        const QImage image = kept.painted();
        QCOMPARE(image.pixel(0, 0), magenta);
        QCOMPARE(image.pixel(480, 270), magenta);
    }
};

QUENARA_GUI_TEST(TestSlideImage)

} // namespace tst_slide_image

#include "tst_slide_image.moc"
