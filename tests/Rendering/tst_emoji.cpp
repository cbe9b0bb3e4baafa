#include "EmojiImageCache.h"
#include "Fonts.h"
#include "RenderCaches.h"
#include "TextBlock.h"
#include "TextImages.h"

#include <QTextLayout>

using namespace quenara;
using namespace quenara::test;

namespace tst_emoji {

namespace {

constexpr CanvasFrame frame{200, 200, 1500, 600};

/// How many pixels are neither black, grey nor white.
int colouredPixels(const QImage &image)
{
    constexpr int clearlyColoured = 100;
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += QColor(image.pixel(x, y)).hsvSaturation() > clearlyColoured ? 1 : 0;
    }
    return count;
}

/// The glyph of a smile, in a face of emoji.
QGlyphRun smile()
{
    QFont font(emojiFontFamily());
    font.setPixelSize(128);
    font.setHintingPreference(QFont::PreferNoHinting);
    QTextLayout layout(QStringLiteral("\U0001F600"), font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    return layout.glyphRuns().constFirst();
}

/// What \a draw paints over black, with \a offset from the middle and scaled by \a scale.
QImage drawnAt(const QPointF &offset, double scale, const std::function<void(QPainter &)> &draw)
{
    QImage image(800, 800, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.translate(image.rect().center() + offset);
    painter.scale(scale, scale);
    draw(painter);
    return image;
}

} // namespace

class TestEmoji : public GuiTest
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(!emojiFontFamily().isEmpty(), "scripts/setup test installs a face with emoji");
    }

    void emojiArePaintedInColourAtEverySize_data()
    {
        QTest::addColumn<double>("fontSize");
        QTest::addColumn<double>("opacity");
        for (const double fontSize : {24.0, 78.0, 150.0, 400.0}) {
            QTest::addRow("size %g", fontSize) << fontSize << 1.0;
            QTest::addRow("size %g, faded", fontSize) << fontSize << 0.7;
        }
    }

    void emojiArePaintedInColourAtEverySize()
    {
        QFETCH(double, fontSize);
        QFETCH(double, opacity);
        TextElementProperties text = plainText(QStringLiteral("\U0001F600"));
        text.fontSize = fontSize;
        text.shadow = TextShadow::soft;
        Slide slide = textSlide(text, frame);
        slide.design.elements.first().opacity = opacity;
        const QImage image = rendered({.slide = slide}, canvas);
        const QRect ink = inkOf(image);
        QVERIFY(ink.height() > 0.8 * fontSize);
        QVERIFY(ink.height() < 1.4 * fontSize);
        QVERIFY(colouredPixels(image) > ink.width() * ink.height() / 2);
    }

    void whatIsAnEmojiHasColourAndTheOtherSymbolsThatOfTheText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isColoured");
        QTest::newRow("a star") << QStringLiteral("\u2b50") << true;
        QTest::newRow("praying hands of a skin tone")
            << QStringLiteral("\U0001F64F\U0001F3FE") << true;
        QTest::newRow("a heart told to be an emoji") << QStringLiteral("\u2764\ufe0f") << true;
        QTest::newRow("an umbrella") << QStringLiteral("\u2614") << true;
        QTest::newRow("an umbrella told to be a letter") << QStringLiteral("\u2614\ufe0e") << false;
        QTest::newRow("a letter before a selector that is not for it")
            << QStringLiteral("A\ufe0f") << false;
        QTest::newRow("a heart") << QStringLiteral("\u2665") << false;
        QTest::newRow("a cross") << QStringLiteral("\u271d") << false;
        QTest::newRow("digits and signs") << QStringLiteral("1 # * \u00a9 \u2192") << false;
    }

    void whatIsAnEmojiHasColourAndTheOtherSymbolsThatOfTheText()
    {
        QFETCH(QString, text);
        QFETCH(bool, isColoured);
        const QImage image = textImage(plainText(text), frame);
        QVERIFY(!inkOf(image).isEmpty());
        QCOMPARE(colouredPixels(image) > 200, isColoured);
    }

    void joinedEmojiAreOneImage()
    {
        const auto width = [](const QString &text) {
            return TextBlock(plainText(text), {1500, 600}).bounds().width();
        };
        const double one = width(QStringLiteral("\U0001F468"));
        QCOMPARE(width(QStringLiteral("\U0001F468\u200d\U0001F469\u200d\U0001F467")), one);
        QCOMPARE(width(QStringLiteral("\U0001F1FA\U0001F1E6")), one);
        const QString couple = QStringLiteral("\U0001F469\u200d\u2764%1\u200d\U0001F468");
        const QString rainbow = QStringLiteral("\U0001F3F3%1\u200d\U0001F308");
        const QString doctor = QStringLiteral("\U0001F9D1\u200d\u2695%1");
        const QString keycap = QStringLiteral("1%1\u20e3");
        for (const QString &joined : {couple, rainbow, doctor, keycap}) {
            QCOMPARE(width(joined.arg(QChar(0xfe0f))), one);
            QCOMPARE(width(joined.arg(QString())), one);
        }
    }

    void anEmojiLooksLikeItsBitmapAtEverySize()
    {
        const QGlyphRun run = smile();
        const auto emojiAt = [&](double scale) {
            EmojiImageCache cache;
            return drawnAt({}, scale, [&](QPainter &painter) {
                cache.image(run.rawFont(), run.glyphIndexes().constFirst(), scale)
                    .draw(painter, run.positions().constFirst());
            });
        };
        // Where nothing is scaled, every release of Qt paints the bitmap that the face holds.
        const QImage bitmap =
            drawnAt({}, 1, [&](QPainter &painter) { painter.drawGlyphRun({}, run); });
        QCOMPARE(emojiAt(1), bitmap);
        for (const double scale : {0.1, 0.24, 0.5, 0.85, 1.7, 2.9, 4.0}) {
            const QImage expected = drawnAt({}, scale, [&](QPainter &painter) {
                painter.setRenderHint(QPainter::SmoothPixmapTransform);
                painter.drawImage(-QPointF(bitmap.rect().center()), bitmap);
            });
            const QRect ink = inkOf(emojiAt(scale));
            const QRect expectedInk = inkOf(expected);
            constexpr int rounded = 2; // edges that are blurred, and the place on whole pixels
            QVERIFY(std::abs(ink.left() - expectedInk.left()) <= rounded);
            QVERIFY(std::abs(ink.top() - expectedInk.top()) <= rounded);
            QVERIFY(std::abs(ink.right() - expectedInk.right()) <= rounded);
            QVERIFY(std::abs(ink.bottom() - expectedInk.bottom()) <= rounded);
            QVERIFY(colouredPixels(emojiAt(scale)) > 0.5 * ink.width() * ink.height());
        }
    }

    void anEmojiStandsOnWholePixelsAsLettersDo()
    {
        const QGlyphRun run = smile();
        EmojiImageCache cache;
        for (const double scale : {0.1, 1.7}) {
            const EmojiImage emoji =
                cache.image(run.rawFont(), run.glyphIndexes().constFirst(), scale);
            const auto inkAt = [&](const QPointF &offset) {
                return inkOf(
                    drawnAt(offset, scale, [&](QPainter &painter) { emoji.draw(painter, {}); }));
            };
            const QRect ink = inkAt({});
            for (const double part : {0.01, 0.2, 0.49, 0.5, 0.51, 0.8, 0.99}) {
                QCOMPARE(inkAt({part, 0}), ink);
                QCOMPARE(inkAt({0, part}), part < 0.5 ? ink : ink.translated(0, 1));
            }
        }
    }

    void aLargerEmojiIsEnlargedFromTheLargestSize()
    {
        const QGlyphRun run = smile();
        EmojiImageCache cache;
        constexpr int largest = int(EmojiImageCache::largestSize);
        for (const double scale : {5.0, 80.0, 400.0, 1e6}) {
            const EmojiImage emoji =
                cache.image(run.rawFont(), run.glyphIndexes().constFirst(), scale);
            QVERIFY(emoji.image.width() > largest / 2 && emoji.image.width() < 2 * largest);
            const QImage drawn = drawnAt({-0.5 * 128 * scale, 0}, scale, [&](QPainter &painter) {
                emoji.draw(painter, {0, 0.4 * 128});
            });
            QVERIFY2(colouredPixels(drawn) > 50, QByteArray::number(scale));
        }
        QVERIFY(cache.byteCount() < 5 * qsizetype(4) * largest * largest);
    }

    void anEmojiOfAnySizeCostsNoMoreThanTheLimitOfItsCache_data()
    {
        QTest::addColumn<double>("fontSize");
        QTest::addColumn<bool>("isSeen");
        for (const double fontSize : {600.0, 10'000.0, 50'000.0, 1e6})
            QTest::addRow("size %g", fontSize) << fontSize << true;
        QTest::newRow("a size beyond what Qt paints") << 1e9 << false;
    }

    void anEmojiOfAnySizeCostsNoMoreThanTheLimitOfItsCache()
    {
        QFETCH(double, fontSize);
        QFETCH(bool, isSeen);
        TextElementProperties text = plainText(QStringLiteral("\U0001F600"));
        text.fontSize = fontSize;
        text.shadow = TextShadow::soft;
        const CanvasFrame wide{960 - 2 * fontSize, 540 - 2 * fontSize, 4 * fontSize, 4 * fontSize};
        RenderCaches caches;
        QImage image(canvas, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::black);
        QPainter painter(&image);
        SlideRendererView{.slide = textSlide(text, wide)}.paint(painter, image.rect(), caches);
        painter.end();
        QCOMPARE(colouredPixels(image) > 1000, isSeen);
        QVERIFY(caches.emoji.byteCount() > 0);
        QVERIFY(caches.emoji.byteCount() <= EmojiImageCache::usualByteLimit);
    }

    void emojiThatWereNotUsedForLongGo()
    {
        const QGlyphRun run = smile();
        constexpr qsizetype limit = qsizetype(2) * 1024 * 1024;
        EmojiImageCache cache(limit);
        for (quint32 glyph = 100; glyph < 200; ++glyph) {
            cache.image(run.rawFont(), glyph, 2);
            QVERIFY(cache.byteCount() <= limit);
        }
        QVERIFY(cache.byteCount() > limit / 2);
    }

    void emojiOutOfSightAreNotPainted()
    {
        const CanvasFrame beside{3000, 200, 800, 400};
        RenderCaches caches;
        QImage image(canvas, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        const Slide slide = textSlide(plainText(QStringLiteral("\U0001F600")), beside);
        SlideRendererView{.slide = slide}.paint(painter, image.rect(), caches);
        QCOMPARE(caches.emoji.byteCount(), qsizetype(0));
    }

    void emojiInALowerThirdAreColouredToo()
    {
        SlideElement element;
        element.id = QStringLiteral("caption");
        element.kind = SlideElementKind::lowerThird;
        element.frame = {100, 700, 1200, 200};
        element.lowerThird = LowerThirdProperties{QStringLiteral("Ana \U0001F600"),
                                                  QStringLiteral("Guest \u2764\ufe0f"),
                                                  {0, 0, 0, 1},
                                                  {0, 0, 0, 1}};
        SlideDesign design = designOver(solidBackground({0, 0, 0, 1}));
        design.elements = {element};
        const QImage image = rendered({.slide = slideWith(design)}, canvas);
        const int middle = 800;
        QVERIFY(colouredPixels(image.copy(0, 0, canvas.width(), middle)) > 500);
        QVERIFY(colouredPixels(image.copy(0, middle, canvas.width(), 280)) > 150);
    }

    void emojiStandOnTheLineOfTheLettersBesideThem()
    {
        const QString letters = QStringLiteral("HH");
        const QString both = QStringLiteral("HH \U0001F600");
        QCOMPARE(TextBlock(plainText(both), {1500, 600}).lines(), QStringList{both});
        const QImage image = textImage(plainText(both), frame);
        QVERIFY(inkOf(image).width() > inkOf(textImage(plainText(letters), frame)).width() + 60);
        QVERIFY(colouredPixels(image) > 2000);
    }
};

QUENARA_GUI_TEST(TestEmoji)

} // namespace tst_emoji

#include "tst_emoji.moc"
