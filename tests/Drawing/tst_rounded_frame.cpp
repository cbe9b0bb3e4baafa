#include "GuiTestSupport.h"
#include "RoundedFrame.h"
#include "RoundedShapes.h"

#include <QPainter>

using namespace quenara;
using namespace quenara::test;

namespace tst_rounded_frame {

namespace {

constexpr int rounding = 2; // of 255; from painting through a clip and blending twice

QImage photograph(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    painter.fillRect(image.rect(), QGradient::WarmFlame);
    return image;
}

/// The same frame, painted by Qt.
QImage framedByPainter(const QImage &plain, const RoundedFrame::Shape &shape, const QColor &line)
{
    const auto edge = [&](double inset) {
        const QRectF rect = shape.rect.adjusted(inset, inset, -inset, -inset);
        return rect.isEmpty() ? QPainterPath() : continuousRoundedRect(rect, shape.radius - inset);
    };
    QImage image(plain.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipPath(edge(shape.lineWidth / 2));
    painter.drawImage(0, 0, plain);
    painter.setClipping(false);
    QPainterPath outline = edge(0);
    outline.addPath(edge(shape.lineWidth));
    painter.fillPath(outline, line);
    return image;
}

QImage framed(QImage image, const RoundedFrame::Shape &shape, const QColor &line)
{
    RoundedFrame().apply(image, shape, line);
    return image;
}

} // namespace

class TestRoundedFrame : public GuiTest
{
    Q_OBJECT

private slots:
    void anImageIsCutAndOutlined_data()
    {
        QTest::addColumn<RoundedFrame::Shape>("shape");
        QTest::addColumn<QColor>("line");
        const auto row = [](const char *name, const RoundedFrame::Shape &shape,
                            const QColor &line) { QTest::newRow(name) << shape << line; };
        const QColor grey(90, 90, 90);
        row("a thin line", {{0, 0, 240, 180}, 8, 1}, grey);
        row("a line of two pixels", {{0, 0, 240, 180}, 16, 2}, grey);
        row("a translucent line", {{0, 0, 240, 180}, 8, 1}, QColor(255, 0, 0, 77));
        row("square corners", {{0, 0, 240, 180}, 0, 1}, grey);
        row("as round as it can be", {{0, 0, 240, 180}, 200, 1}, grey);
        row("edges between pixels", {{3.3, 2.6, 230.5, 170.2}, 8, 1.5}, grey);
        row("partly out of the image", {{-40, -10, 400, 150}, 12, 1}, grey);
        row("no larger than its line", {{20, 20, 2, 2}, 1, 4}, grey);
    }

    void anImageIsCutAndOutlined()
    {
        QFETCH(RoundedFrame::Shape, shape);
        QFETCH(QColor, line);
        const QImage image = photograph({240, 180});
        QVERIFY(largestDifference(framed(image, shape, line), framedByPainter(image, shape, line))
                <= rounding);
    }

    void oneFrameServesImagesOfAllSizesAndShapes()
    {
        const QColor line(90, 90, 90);
        RoundedFrame frame;
        const RoundedFrame::Shape first{{0, 0, 240, 180}, 8, 1};
        const RoundedFrame::Shape rounder{{0, 0, 240, 180}, 30, 1};
        for (const RoundedFrame::Shape &shape : {first, rounder, first}) {
            for (const QSize &size : {QSize(240, 180), QSize(100, 100), QSize(240, 180)}) {
                QImage image = photograph(size);
                frame.apply(image, shape, line);
                QCOMPARE(image, framed(photograph(size), shape, line));
            }
        }
    }

    void withoutAnImageThereIsNothingToFrame()
    {
        QCOMPARE(framed({}, {{0, 0, 10, 10}, 2, 1}, Qt::red), QImage());
    }
};

QUENARA_GUI_TEST(TestRoundedFrame)

} // namespace tst_rounded_frame

#include "tst_rounded_frame.moc"
