#include "GuiTestSupport.h"
#include "TextBlock.h"
#include "TextImages.h"

#include <QPainter>
#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <cmath>

using namespace quenara;
using namespace quenara::test;

namespace tst_random_slides {

namespace {

constexpr int slideCount = 150;

/// Words of all lengths, some joined by hyphens, in one to four lines.
QString randomText(QRandomGenerator &random)
{
    QString text;
    const int words = random.bounded(1, 14);
    for (int word = 0; word < words; ++word) {
        const int letters = random.bounded(1, random.bounded(8) == 0 ? 24 : 9);
        for (int letter = 0; letter < letters; ++letter)
            text += QChar(u'a' + random.bounded(26));
        constexpr std::array separators{u' ', u' ', u' ', u'-', u'\n'};
        text += QChar(separators.at(std::size_t(random.bounded(int(separators.size())))));
    }
    return text.chopped(1);
}

/// Whether no line but the last ends inside a word.
bool hasWholeWords(const TextBlock &block, const QString &text)
{
    QStringList lines = block.lines();
    lines.removeLast();
    return std::all_of(lines.begin(), lines.end(), [&](const QString &line) {
        return line.endsWith(u' ') || line.endsWith(u'-') || (text + u'\n').contains(line + u'\n');
    });
}

SlideBackground plain()
{
    return solidBackground({1, 1, 1, 1});
}

SlideBackground sameAsGradient()
{
    SlideBackground background = plain();
    background.kind = SlideBackgroundKind::gradient;
    background.gradient = GradientBackground{{1, 1, 1, 1}, {1, 1, 1, 1}};
    return background;
}

} // namespace

class TestRandomSlides : public GuiTest
{
    Q_OBJECT

private slots:
    void wordsAreWholeAboveTheSmallestSizeAndNoLargerSizeFits()
    {
        QRandomGenerator random(1);
        int shrunk = 0;
        for (int i = 0; i < slideCount; ++i) {
            TextElementProperties text = plainText(randomText(random));
            text.fontSize = 40 + random.bounded(140.0);
            const QSizeF box(250 + random.bounded(1200.0), 150 + random.bounded(700.0));
            const TextBlock block(text, box);
            if (block.fit() == TextBlock::smallestFit)
                continue;
            QVERIFY2(hasWholeWords(block, text.text), qPrintable(text.text));
            QVERIFY(block.bounds().height() <= box.height());
            if (block.fit() < 1) {
                constexpr double halfAUnit = 0.5;
                ++shrunk;
                text.fontSize = text.fontSize * block.fit() + halfAUnit;
                QVERIFY2(TextBlock(text, box).fit() < 1, qPrintable(text.text));
            }
        }
        QVERIFY(shrunk > slideCount / 4);
    }

    void aSlideCoversTheSameWholePixelsWhateverItsBackground()
    {
        QRandomGenerator random(2);
        for (int i = 0; i < slideCount; ++i) {
            const QSize screen(60 + random.bounded(500), 60 + random.bounded(400));
            SlideDesign design = designOver(plain());
            design.canvasSize = {200 + random.bounded(2000.0), 200 + random.bounded(1500.0)};
            const QImage solid = rendered({.slide = slideWith(design)}, screen);
            design.background = sameAsGradient();
            QCOMPARE(rendered({.slide = slideWith(design)}, screen), solid);
            // Magenta shows through what is not covered.
            const QRectF slide = SlideRendererView::fittedRect(
                screen, design.canvasSize.width / design.canvasSize.height);
            const QRect inside = slide.adjusted(0.01, 0.01, -0.01, -0.01).toAlignedRect();
            for (int y = inside.top(); y <= inside.bottom(); ++y) {
                for (int x = inside.left(); x <= inside.right(); ++x)
                    QCOMPARE(solid.pixel(x, y), qRgb(255, 255, 255));
            }
        }
    }

    void aPlaceholdersLineLiesInsideItsLayer()
    {
        QRandomGenerator random(3);
        for (int i = 0; i < slideCount / 3; ++i) {
            SlideElement layer = rectangleLayer(QStringLiteral("image"), {}, {}, 1);
            layer.kind = SlideElementKind::image;
            layer.frame = {random.bounded(900.0), random.bounded(500.0),
                           150 + random.bounded(800.0), 150 + random.bounded(400.0)};
            SlideDesign design = designOver(solidBackground({0, 0, 0, 1}));
            design.elements = {layer};
            const QImage image = rendered({.slide = slideWith(design)}, canvas);
            const QRectF box(layer.frame.x, layer.frame.y, layer.frame.width, layer.frame.height);
            QVERIFY(box.toAlignedRect().contains(inkOf(image)));
            // Two points of white at an opacity of 0.35, wherever the dash has none of its gaps.
            const int row = int(std::ceil(box.top()));
            int brightest = 0;
            for (int x = int(box.left()) + 2; x < int(box.right()) - 2; ++x)
                brightest = std::max(brightest, qGreen(image.pixel(x, row)));
            QVERIFY(brightest > 80);
        }
    }
};

QUENARA_GUI_TEST(TestRandomSlides)

} // namespace tst_random_slides

#include "tst_random_slides.moc"
