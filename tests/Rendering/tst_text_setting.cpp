#include "RenderCaches.h"
#include "TextBlock.h"
#include "TextImages.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_text_setting {

namespace {

constexpr CanvasFrame frame{200, 200, 1500, 600};

TextElementProperties leftAligned(const QString &text)
{
    TextElementProperties properties = plainText(text);
    properties.alignment = TextAlignmentValue::left;
    return properties;
}

/// Where lines of ink begin, each divided from the next by at least one black row.
QList<int> topsOfInk(const QImage &image)
{
    QList<int> tops;
    bool wasBlack = true;
    for (int y = 0; y < image.height(); ++y) {
        const bool isBlack = inkOf(image.copy(0, y, image.width(), 1)).isNull();
        if (wasBlack && !isBlack)
            tops.append(y);
        wasBlack = isBlack;
    }
    return tops;
}

} // namespace

class TestTextSetting : public GuiTest
{
    Q_OBJECT

private slots:
    void characterSpacingFollowsEveryCharacter_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("characters");
        QTest::newRow("letters") << QStringLiteral("HHHH") << 4;
        QTest::newRow("words") << QStringLiteral("HH HH") << 5;
        QTest::newRow("a letter and its combining mark are one")
            << QStringLiteral("HE\u0301H") << 3;
    }

    void characterSpacingFollowsEveryCharacter()
    {
        QFETCH(QString, text);
        QFETCH(int, characters);
        constexpr double spacing = 20;
        TextElementProperties properties = leftAligned(text);
        const double plainWidth = TextBlock(properties, {1500, 600}).bounds().width();
        const QRect plainInk = inkOf(textImage(properties, frame));
        properties.characterSpacing = spacing;
        const double spacedWidth = TextBlock(properties, {1500, 600}).bounds().width();
        const QRect spacedInk = inkOf(textImage(properties, frame));
        QVERIFY(std::abs(spacedWidth - plainWidth - characters * spacing) < 0.1);
        // What follows the last character is not seen, but counts for the alignment.
        QVERIFY(std::abs(spacedInk.width() - plainInk.width() - (characters - 1) * spacing) <= 1);
        QCOMPARE(spacedInk.left(), plainInk.left());
        properties.alignment = TextAlignmentValue::right;
        const int rightMargin = 1700 - inkOf(textImage(properties, frame)).right();
        QVERIFY(rightMargin >= spacing);
    }

    void lettersThatOverlapShowNoSeamsInATranslucentColour_data()
    {
        QTest::addColumn<double>("fontSize");
        QTest::newRow("large") << 120.0;
        QTest::newRow("small") << 40.0;
    }

    void lettersThatOverlapShowNoSeamsInATranslucentColour()
    {
        QFETCH(double, fontSize);
        TextElementProperties text = plainText(QStringLiteral("OOOOOOOO"));
        text.fontSize = fontSize;
        text.characterSpacing = -fontSize / 3;
        text.textColor.alpha = 0.5;
        const QImage image = textImage(text, frame);
        int brightest = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                brightest = std::max(brightest, qGray(image.pixel(x, y)));
        }
        QVERIFY(brightest >= 126 && brightest <= 129);
    }

    void aTranslucentTextIsAsWholeAsAnOpaqueOne()
    {
        TextElementProperties text = plainText(QStringLiteral("HHHH"));
        text.characterSpacing = -40;
        const QRect opaque = inkOf(textImage(text, frame));
        text.textColor.alpha = 0.9;
        QCOMPARE(inkOf(textImage(text, frame)), opaque);
    }

    void aRightToLeftLineEndsOnItsLeft_data()
    {
        QTest::addColumn<QString>("mark");
        QTest::newRow("a full stop") << QStringLiteral(".");
        QTest::newRow("an exclamation mark") << QStringLiteral("!");
        QTest::newRow("an ellipsis") << QStringLiteral("\u2026");
    }

    void aRightToLeftLineEndsOnItsLeft()
    {
        QFETCH(QString, mark);
        const QString word = QStringLiteral("\u05e9\u05dc\u05d5\u05dd");
        TextElementProperties text = plainText(word);
        text.alignment = TextAlignmentValue::right;
        const QRect bare = inkOf(textImage(text, frame));
        text.text += mark;
        const QRect marked = inkOf(textImage(text, frame));
        QVERIFY(marked.left() < bare.left() - 4);
        QVERIFY(std::abs(marked.right() - bare.right()) <= 1);
    }

    void spacingBeforeABreakMovesNoLetter_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<TextAlignmentValue>("alignment");
        const QString hebrew = QStringLiteral("\u05d4\u05dc\u05dc\u05d5");
        for (const auto alignment :
             {TextAlignmentValue::left, TextAlignmentValue::center, TextAlignmentValue::right}) {
            const QByteArray name = rawValue(alignment).toUtf8();
            QTest::addRow("Hebrew, %s", name.constData()) << hebrew << alignment;
            QTest::addRow("Latin, %s", name.constData()) << QStringLiteral("Sing") << alignment;
        }
    }

    void spacingBeforeABreakMovesNoLetter()
    {
        QFETCH(QString, line);
        QFETCH(TextAlignmentValue, alignment);
        TextElementProperties text = plainText(line + QLatin1Char('\n') + line);
        text.alignment = alignment;
        const QImage bare = textImage(text, frame);
        text.text = line + QStringLiteral("  \t\r\n") + line + QLatin1Char(' ');
        QCOMPARE(textImage(text, frame), bare);
    }

    void linesArePaintedAsFarApartAsTheirSpacingSays()
    {
        const auto pitch = [](double lineHeight) {
            TextElementProperties text = plainText(QStringLiteral("HH\nHH\nHH"));
            text.lineHeight = lineHeight;
            const QList<int> tops = topsOfInk(textImage(text, frame));
            return tops.size() == 3 ? (tops.at(2) - tops.at(0)) / 2.0 : 0;
        };
        const double set = pitch(1);
        QVERIFY(set > 78);
        QVERIFY(std::abs(pitch(1.5) - set - 39) <= 0.5);
        QVERIFY(std::abs(pitch(2) - set - 78) <= 0.5);
        QCOMPARE(pitch(0.8), set);
        QCOMPARE(pitch(-3), set);
    }

    void blankLinesArePaintedAsTheRoomOfALine()
    {
        const QList<int> closed = topsOfInk(textImage(plainText(QStringLiteral("H\nH")), frame));
        const QList<int> open = topsOfInk(textImage(plainText(QStringLiteral("H\n\nH")), frame));
        QCOMPARE(closed.size(), 2);
        QCOMPARE(open.size(), 2);
        const int pitch = closed.at(1) - closed.at(0);
        QVERIFY(std::abs(open.at(1) - open.at(0) - 2 * pitch) <= 1);
    }

    void blankLinesAtTheStartAndTheEndCountForTheCentring()
    {
        const auto top = [](const QString &text) {
            return inkOf(textImage(plainText(text), frame)).top();
        };
        const int alone = top(QStringLiteral("H"));
        QVERIFY(top(QStringLiteral("\nH")) > alone + 30);
        QVERIFY(top(QStringLiteral("H\n")) < alone - 30);
    }

    void everyKindOfLineBreakBreaks_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("line feed") << QStringLiteral("one\ntwo");
        QTest::newRow("carriage return") << QStringLiteral("one\rtwo");
        QTest::newRow("both") << QStringLiteral("one\r\ntwo");
        QTest::newRow("line separator") << QStringLiteral("one\u2028two");
        QTest::newRow("paragraph separator") << QStringLiteral("one\u2029two");
        QTest::newRow("line tabulation") << QStringLiteral("one\u000btwo");
        QTest::newRow("form feed") << QStringLiteral("one\u000ctwo");
        QTest::newRow("next line") << QStringLiteral("one\u0085two");
    }

    void everyKindOfLineBreakBreaks()
    {
        QFETCH(QString, text);
        QCOMPARE(TextBlock(plainText(text), {1500, 900}).lines(),
                 (QStringList{QStringLiteral("one"), QStringLiteral("two")}));
        QCOMPARE(textImage(plainText(text), frame),
                 textImage(plainText(QStringLiteral("one\ntwo")), frame));
    }

    void linesBreakBetweenWordsAndInsideThoseThatAloneAreTooLong()
    {
        const QStringList lines =
            TextBlock(plainText(QStringLiteral("a Hallelujahhallelujah b")), {500, 900}).lines();
        QVERIFY(lines.size() >= 3);
        QCOMPARE(lines.constFirst(), QStringLiteral("a "));
        QCOMPARE(lines.join(QString()), QStringLiteral("a Hallelujahhallelujah b"));
    }

    void aSharpSIsPaintedInCapitalsAsTwo()
    {
        TextElementProperties text = plainText(QStringLiteral("straße"));
        text.uppercase = true;
        QCOMPARE(textImage(text, frame), textImage(plainText(QStringLiteral("STRASSE")), frame));
        QCOMPARE(text.text, QStringLiteral("straße"));
    }

    void aLetterWithItsCombiningMarkIsPaintedLikeTheOneCharacter()
    {
        QCOMPARE(textImage(plainText(QStringLiteral("caf\u0065\u0301")), frame),
                 textImage(plainText(QStringLiteral("caf\u00e9")), frame));
    }

    void rightToLeftTextRunsFromTheRight_data()
    {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("both");
        QTest::newRow("Hebrew") << QStringLiteral("\u05e9\u05dc\u05d5\u05dd")
                                << QStringLiteral("\u05e9\u05dc\u05d5\u05dd "
                                                  "\u05e2\u05d5\u05dc\u05dd");
        QTest::newRow("letters told to run that way")
            << QStringLiteral("\u202eSing") << QStringLiteral("\u202eSing with");
    }

    void rightToLeftTextRunsFromTheRight()
    {
        QFETCH(QString, first);
        QFETCH(QString, both);
        const auto flushRight = [](const QString &text) {
            TextElementProperties properties = plainText(text);
            properties.alignment = TextAlignmentValue::right;
            return textImage(properties, frame);
        };
        const QImage one = flushRight(first);
        const QImage two = flushRight(both);
        const QRect ink = inkOf(one);
        QVERIFY(!ink.isEmpty());
        QVERIFY(inkOf(two).left() < ink.left() - 40);
        QVERIFY(largestDifference(one.copy(ink), two.copy(ink)) <= 1);
    }

    void leftIsTheLeftEdgeForRightToLeftTextToo()
    {
        const QRect ink = inkOf(textImage(leftAligned(QStringLiteral("\u05e9\u05dc")), frame));
        QVERIFY(std::abs(ink.left() - 200) <= 12);
    }

    void inkBoundsHoldTheLettersAndLittleElse_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("spacing");
        QTest::addColumn<bool>("isTight");
        const auto row = [](const char *name, const QString &text, double spacing = 0,
                            bool isTight = true) {
            QTest::newRow(name) << text << spacing << isTight;
        };
        row("a word", QStringLiteral("Amen"));
        row("below the line", QStringLiteral("gypsy,"));
        row("above it", QStringLiteral("\u00c5\u1ebe"));
        row("lines", QStringLiteral("jumping\nA\nquickly"));
        row("letters on one another", QStringLiteral("Amen"), -30);
        row("letters far apart", QStringLiteral("Amen"), 30);
        row("right-to-left", QStringLiteral("\u05d4\u05dc\u05dc\u05d5 \u05d0\u05ea"));
        row("shrunk", QStringLiteral("great is the morning ").repeated(12));
        row("truncated", QStringLiteral("great is the morning ").repeated(200));
        row("an image", QStringLiteral("a \U0001f499"), 0, false);
    }

    void inkBoundsHoldTheLettersAndLittleElse()
    {
        QFETCH(QString, text);
        QFETCH(double, spacing);
        QFETCH(bool, isTight);
        TextElementProperties properties = plainText(text);
        properties.characterSpacing = spacing;
        constexpr QSizeF box(1400, 600);
        const QRectF ink =
            inkOf(textImage(properties, {200, 200, box.width(), box.height()})).toRectF();
        RenderCaches caches;
        const QRectF bounds = TextBlock(properties, box).inkBounds(caches).translated(200, 200);
        QVERIFY(bounds.adjusted(-1, -1, 1, 1).contains(ink));
        if (isTight)
            QVERIFY(ink.adjusted(-2, -2, 2, 2).contains(bounds));
    }

    void nothingHasNoInkBounds()
    {
        RenderCaches caches;
        QVERIFY(TextBlock(plainText({}), {100, 100}).inkBounds(caches).isEmpty());
        QVERIFY(
            TextBlock(plainText(QStringLiteral("  \n ")), {100, 100}).inkBounds(caches).isEmpty());
    }
};

QUENARA_GUI_TEST(TestTextSetting)

} // namespace tst_text_setting

#include "tst_text_setting.moc"
