#include "GuiTestSupport.h"
#include "RenderCaches.h"
#include "TextImages.h"

#include <QPainter>

#include <cmath>

using namespace quenara;
using namespace quenara::test;

namespace tst_text_placement {

namespace {

constexpr QSize device(1200, 500);

/// White capitals without a round at their feet, on black.
QImage capitals(double pixelSize, double top, double scale, TextBlock::Placement placement)
{
    TextElementProperties text = plainText(QStringLiteral("HIHI"));
    text.fontSize = pixelSize / scale;
    TextBlock block(text, QSizeF(1000, 300) / scale);
    RenderCaches caches;
    QImage image(device, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::white);
    painter.translate(50.3, top);
    painter.scale(scale, scale);
    block.draw(painter, caches, placement);
    return image;
}

/// How bright the brightest pixel of a row is.
int brightness(const QImage &image, int row)
{
    int brightest = 0;
    for (int x = 0; x < image.width(); ++x)
        brightest = std::max(brightest, qGreen(image.pixel(x, row)));
    return brightest;
}

/// Where the light of an image lies, in rows from the top.
double middle(const QImage &image)
{
    double light = 0;
    double moment = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            light += qGreen(image.pixel(x, y));
            moment += qGreen(image.pixel(x, y)) * (y + 0.5);
        }
    }
    return moment / light;
}

} // namespace

class TestTextPlacement : public GuiTest
{
    Q_OBJECT

private slots:
    void lettersOfEverySizeStandOnWholeRows_data()
    {
        QTest::addColumn<double>("pixelSize");
        QTest::addColumn<double>("top");
        QTest::addColumn<double>("scale");
        for (const double pixelSize : {40.0, 66.0, 100.0, 181.5}) {
            for (const double top : {20.0, 20.25, 20.5, 20.8}) {
                for (const double scale : {1.0, 0.711, 2.5}) {
                    QTest::addRow("%g pixels, %g from the top, at scale %g", pixelSize, top, scale)
                        << pixelSize << top << scale;
                }
            }
        }
    }

    void lettersOfEverySizeStandOnWholeRows()
    {
        QFETCH(double, pixelSize);
        QFETCH(double, top);
        QFETCH(double, scale);
        const QImage image = capitals(pixelSize, top, scale, TextBlock::Placement::onWholeRows);
        int lowest = image.height() - 1;
        while (lowest > 0 && brightness(image, lowest) == 0)
            --lowest;
        QVERIFY(brightness(image, lowest) > 250);
        const QImage exact = capitals(pixelSize, top, scale, TextBlock::Placement::exact);
        QVERIFY(std::abs(middle(image) - middle(exact)) < 0.52);
    }

    void aTurnedLineStandsWhereItIs()
    {
        TextElementProperties text = plainText(QStringLiteral("Great"));
        text.fontSize = 200;
        const auto turned = [&](double down) {
            Slide slide = textSlide(text, {300, 300 + down, 1200, 400});
            slide.design.elements.first().rotation = 30;
            return middle(rendered({.slide = slide}, {1920, 1080}));
        };
        QVERIFY(std::abs(turned(0.3) - turned(0) - 0.3) < 0.05);
    }

    void aFillHoldsTheMarksOfCapitalsInABoxThatIsTooLow_data()
    {
        QTest::addColumn<double>("height");
        QTest::addColumn<double>("padding");
        QTest::newRow("a low box") << 30.0 << 0.0;
        QTest::newRow("a very low box") << 5.0 << 0.0;
        QTest::newRow("a box with a padding of its height") << 60.0 << 30.0;
        QTest::newRow("a box with a negative padding") << 60.0 << -80.0;
    }

    void aFillHoldsTheMarksOfCapitalsInABoxThatIsTooLow()
    {
        QFETCH(double, height);
        QFETCH(double, padding);
        TextElementProperties text = plainText(QStringLiteral("\u00c5\u1ea8g"));
        text.textColor = {0, 1, 0, 1};
        text.backgroundFill = RGBAColor{1, 0, 0, 1};
        text.padding = padding;
        const QImage image =
            rendered({.slide = textSlide(text, {300, 500, 1200, height})}, {1920, 1080});
        const auto isFilled = [&](int y) { return qRed(image.pixel(400, y)) > 180; };
        int letters = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qGreen(image.pixel(x, y)) > 200) {
                    ++letters;
                    QVERIFY(isFilled(y));
                }
            }
        }
        QVERIFY(letters > 100);
    }

    void aFillIsTheBoxAroundATextThatFits()
    {
        TextElementProperties text = plainText(QStringLiteral("\u00c5"));
        text.fontSize = 40;
        text.backgroundFill = RGBAColor{1, 0, 0, 1};
        const QImage image =
            rendered({.slide = textSlide(text, {300, 500, 1200, 100})}, {1920, 1080});
        QVERIFY(qRed(image.pixel(400, 499)) < 255);
        QCOMPARE(qRed(image.pixel(400, 500)), 255);
        QCOMPARE(qRed(image.pixel(400, 599)), 255);
        QVERIFY(qRed(image.pixel(400, 600)) < 255);
    }
};

QUENARA_GUI_TEST(TestTextPlacement)

} // namespace tst_text_placement

#include "tst_text_placement.moc"
