#include "Fonts.h"
#include "TextBlock.h"
#include "TextImages.h"

using namespace quenara;
using namespace quenara::test;

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

QUENARA_GUI_TEST_MAIN(TestEmoji)
#include "tst_emoji.moc"
