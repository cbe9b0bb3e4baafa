#include "TextBlock.h"
#include "TextImages.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_text_fitting {

namespace {

TextElementProperties sized(const QString &text, double fontSize)
{
    TextElementProperties properties = plainText(text);
    properties.fontSize = fontSize;
    return properties;
}

QString longText()
{
    return QStringLiteral("We lift our eyes to where our help comes from, and every valley hears. ")
        .repeated(6)
        .trimmed();
}

/// The lines of a text set small from the start, in a box with room for all of them.
QStringList linesAtTheFloor(TextElementProperties text, double width)
{
    text.fontSize *= TextBlock::smallestFit;
    return TextBlock(text, {width, 1e5}, {.smallestFit = 1}).lines();
}

} // namespace

class TestTextFitting : public GuiTest
{
    Q_OBJECT

private slots:
    void aTextIsShrunkToWithinHalfAUnitOfTheLargestSizeThatFits_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("fontSize");
        QTest::addColumn<QSizeF>("box");
        QTest::addColumn<double>("characterSpacing");
        const QString lines = QStringLiteral("one\ntwo\nthree\nfour");
        QTest::newRow("four short lines") << lines << 78.0 << QSizeF(1500, 300) << 0.0;
        QTest::newRow("small print") << lines << 20.0 << QSizeF(1500, 70) << 0.0;
        QTest::newRow("a wrapped text") << longText() << 78.0 << QSizeF(1480, 360) << 0.0;
        QTest::newRow("a wrapped text, spaced") << longText() << 78.0 << QSizeF(1480, 400) << 3.0;
        QTest::newRow("a wrapped text, set tight")
            << longText() << 78.0 << QSizeF(1480, 360) << -2.0;
        QTest::newRow("one large word")
            << QStringLiteral("Hallelujah") << 400.0 << QSizeF(1400, 400) << 0.0;
        QTest::newRow("large lines")
            << QStringLiteral("Holy\nholy") << 400.0 << QSizeF(1800, 700) << 0.0;
        for (int height = 1400; height < 1500; height += 10) {
            QTest::addRow("huge lines in a height of %d", height)
                << QStringLiteral("Holy\nholy") << 900.0 << QSizeF(3000, height) << 0.0;
        }
        const QString mixed =
            QString::fromUtf8("Sing \u2728 with us \u6b4c\u3046 and \U0001f3b5 with "
                              "joy \u0627\u0644\u062d\u0645\u062f ")
                .repeated(5);
        for (int width = 900; width < 1500; width += 60) {
            QTest::addRow("a text wrapped to %d", width)
                << longText() << 78.0 << QSizeF(width, 470'000.0 / width) << 0.0;
            QTest::addRow("scripts and emoji wrapped to %d", width)
                << mixed << 78.0 << QSizeF(width, 420'000.0 / width) << 0.0;
        }
        QTest::newRow("two long words") << QStringLiteral("Responsibility and Righteousness")
                                        << 150.0 << QSizeF(700, 600) << 0.0;
        QTest::newRow("a long word before a short one")
            << QStringLiteral("Congratulations everyone") << 78.0 << QSizeF(300, 600) << 0.0;
        QTest::newRow("a long word with wide spacing")
            << QStringLiteral("Congratulations everyone") << 78.0 << QSizeF(700, 600) << 20.0;
    }

    void aTextIsShrunkToWithinHalfAUnitOfTheLargestSizeThatFits()
    {
        QFETCH(QString, text);
        QFETCH(double, fontSize);
        QFETCH(QSizeF, box);
        QFETCH(double, characterSpacing);
        TextElementProperties properties = sized(text, fontSize);
        properties.characterSpacing = characterSpacing;
        const TextBlock block(properties, box);
        QVERIFY2(block.fit() < 1 && block.fit() > TextBlock::smallestFit,
                 QByteArray::number(block.fit()).constData());
        QVERIFY(block.bounds().height() <= box.height());
        QVERIFY(!block.lines().constLast().endsWith(ellipsis));

        constexpr double halfAUnit = 0.5;
        properties.fontSize = fontSize * block.fit();
        QCOMPARE(TextBlock(properties, box).fit(), 1.0);
        properties.fontSize += halfAUnit;
        QVERIFY(TextBlock(properties, box).fit() < 1);
    }

    void everyWordIsWholeAtTheLargestSizeAtWhichAllCanBe_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("names") << QStringLiteral("Responsibility and Righteousness");
        QTest::newRow("a wish") << QStringLiteral("Congratulations everyone");
        QTest::newRow("hyphens") << QStringLiteral("Well-known everlasting loving-kindness");
        QTest::newRow("lines of their own") << QStringLiteral("Immeasurably\nmore\nunsearchable");
        QTest::newRow("capitals with accents") << QStringLiteral("GÜTE UND BARMHERZIGKEIT FOLGEN");
        QTest::newRow("right to left")
            << QString::fromUtf8("\u0627\u0644\u0645\u0633\u062a\u0634\u0641\u064a\u0627\u062a "
                                 "\u0627\u0644\u0643\u0628\u064a\u0631\u0629");
    }

    void everyWordIsWholeAtTheLargestSizeAtWhichAllCanBe()
    {
        QFETCH(QString, text);
        constexpr double fontSize = 120;
        int shrunkCount = 0;
        for (double width = 300; width < 1200; width += 25) {
            const TextBlock block(sized(text, fontSize), {width, 2000});
            if (block.fit() == TextBlock::smallestFit)
                continue;
            shrunkCount += int(block.fit() < 1);
            QStringList lines = block.lines();
            lines.removeLast();
            for (const QString &line : lines) {
                const QChar last = line.back();
                QVERIFY2(last == u' ' || last == u'-' || text.contains(line + u'\n'),
                         qPrintable(line));
            }
            // A little larger, the widest word would be too wide: no height is lacking.
            if (block.fit() < 1) {
                const double larger = fontSize * block.fit() + 0.5;
                QVERIFY(TextBlock(sized(text, larger), {width, 2000}).fit() < 1);
            }
        }
        QVERIFY(shrunkCount > 3);
    }

    void onlyAtTheSmallestSizeIsAWordBroken()
    {
        const QString longWord = QStringLiteral("Hallelujah").repeated(8);
        const TextBlock block(sized(longWord, 100), {900, 420});
        QCOMPARE(block.fit(), TextBlock::smallestFit);
        QVERIFY(!block.isCut());
        QCOMPARE(block.lines().join(QString()), longWord);
        QVERIFY(block.lines().size() > 1);
    }

    void languagesWithoutSpacesBreakWhereTheyMay_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("Chinese") << QString::fromUtf8("\u8036\u548c\u534e\u662f\u6211\u7684"
                                                      "\u7267\u8005\u6211\u5fc5\u4e0d\u81f3"
                                                      "\u7f3a\u4e4f");
        QTest::newRow("Japanese") << QString::fromUtf8("\u4e3b\u306f\u308f\u305f\u3057\u306e"
                                                       "\u7f8a\u98fc\u3044\u3067\u3042\u308b");
        QTest::newRow("Thai") << QString::fromUtf8(
            "\u0e1e\u0e23\u0e30\u0e40\u0e08\u0e49\u0e32\u0e17\u0e23\u0e07\u0e40\u0e1b\u0e47"
            "\u0e19\u0e1c\u0e39\u0e49\u0e40\u0e25\u0e35\u0e49\u0e22\u0e07\u0e14\u0e39");
    }

    void languagesWithoutSpacesBreakWhereTheyMay()
    {
        QFETCH(QString, text);
        const TextBlock block(sized(text, 100), {450, 2000});
        QCOMPARE(block.fit(), 1.0);
        QVERIFY(block.lines().size() > 1);
    }

    void aTextWithLinesOfUnequalHeightIsAsLargeAsItCanBe_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("two scripts") << QString::fromUtf8("Sing \u6b4c\u3046 Ja \u6b4c\u3046 la");
        QTest::newRow("three scripts") << QString::fromUtf8(
            "\u0e01\u0e35\u0e49 \u6b4c\u3046 Sing \u0627\u0644\u062d\u0645\u062f");
        QTest::newRow("emoji") << QString::fromUtf8("A \U0001f3b5 song \u2728 B");
    }

    void aTextWithLinesOfUnequalHeightIsAsLargeAsItCanBe()
    {
        QFETCH(QString, text);
        constexpr double fontSize = 78;
        constexpr double close = 0.5 / fontSize;
        int shrunkCount = 0;
        for (double width = 250; width < 600; width += 9) {
            for (double height = 120; height < 420; height += 17) {
                const double fit = TextBlock(sized(text, fontSize), {width, height}).fit();
                if (fit == 1 || fit == TextBlock::smallestFit)
                    continue;
                ++shrunkCount;
                double fits = TextBlock::smallestFit;
                double tooLarge = 1;
                while (tooLarge - fits > close) {
                    const double middle = (fits + tooLarge) / 2;
                    const TextBlock tried(sized(text, fontSize * middle), {width, height});
                    (tried.fit() == 1 ? fits : tooLarge) = middle;
                }
                QVERIFY2(std::abs(fit - fits) <= 2 * close,
                         qPrintable(QStringLiteral("%1 instead of %2 in %3 x %4")
                                        .arg(fit)
                                        .arg(fits)
                                        .arg(width)
                                        .arg(height)));
            }
        }
        QVERIFY(shrunkCount > 50);
    }

    void aTextThatFillsItsBoxToTheBrimIsNotShrunk_data()
    {
        QTest::addColumn<double>("fontSize");
        for (const double fontSize : {9.0, 78.0, 400.0})
            QTest::addRow("size %g", fontSize) << fontSize;
    }

    void aTextThatFillsItsBoxToTheBrimIsNotShrunk()
    {
        QFETCH(double, fontSize);
        const TextElementProperties text = sized(QStringLiteral("Sing\nwith joy"), fontSize);
        constexpr double width = 5000;
        const double height = TextBlock(text, {width, 5000}).bounds().height();
        QCOMPARE(TextBlock(text, {width, height}).fit(), 1.0);
        QVERIFY(TextBlock(text, {width, height - 1}).fit() < 1);
    }

    void aShrunkTextIsPaintedInsideItsBox()
    {
        const CanvasFrame frame{300, 200, 1200, 300};
        const QRect ink = inkOf(textImage(sized(longText(), 78), frame));
        QVERIFY(QRect(300, 200, 1200, 300).contains(ink));
        QVERIFY(ink.height() > 230);
    }

    void whatDoesNotFitAtTheSmallestSizeEndsWithTheLastLineThatFits_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("width");
        QTest::addColumn<double>("height");
        QTest::addColumn<double>("fontSize");
        for (const double width : {300.0, 411.0, 523.5, 777.7, 900.0}) {
            QTest::addRow("words in a box of %g", width) << longText() << width << 130.0 << 78.0;
            QTest::addRow("one word in a box of %g", width)
                << QString(300, QLatin1Char('w')) << width << 130.0 << 78.0;
            QTest::addRow("short lines in a box of %g", width)
                << QStringLiteral("We sing\nwith joy\n").repeated(20) << width << 130.0 << 78.0;
            QTest::addRow("right-to-left words in a box of %g", width)
                << (QChar(0x202e) + longText()) << width << 130.0 << 78.0;
            QTest::addRow("large words in a box of %g", width)
                << longText() << 2 * width << 400.0 << 400.0;
        }
        QTest::newRow("only one line fits") << longText() << 900.0 << 50.0 << 78.0;
        QTest::newRow("the last line that fits is blank")
            << QStringLiteral("one\n\nthree\nfour\nfive") << 900.0 << 80.0 << 78.0;
    }

    void whatDoesNotFitAtTheSmallestSizeEndsWithTheLastLineThatFits()
    {
        QFETCH(QString, text);
        QFETCH(double, width);
        QFETCH(double, height);
        QFETCH(double, fontSize);
        const TextElementProperties properties = sized(text, fontSize);
        const TextBlock block(properties, {width, height});
        QCOMPARE(block.fit(), TextBlock::smallestFit);
        QVERIFY(block.bounds().height() <= height);
        QVERIFY(block.bounds().width() <= width);

        const QStringList all = linesAtTheFloor(properties, width);
        const QStringList shown = block.lines();
        QVERIFY(shown.size() < all.size());
        const double pitch = fontSize * TextBlock::smallestFit * 1.4;
        QVERIFY(block.bounds().height() + pitch > height); // one more would not have fitted
        QCOMPARE(shown.first(shown.size() - 1), all.first(shown.size() - 1));

        QVERIFY(shown.constLast().endsWith(ellipsis));
        const QString kept = shown.constLast().chopped(1);
        QVERIFY(all.at(shown.size() - 1).startsWith(kept));
        QVERIFY(!kept.endsWith(ellipsis) && !kept.endsWith(QLatin1Char(' ')));
    }

    void aBoxTooLowForOneLineShowsItsStart()
    {
        for (const double height : {0.0, 10.0}) {
            const TextBlock block(sized(longText(), 78), {900, height});
            QCOMPARE(block.lines().size(), 1);
            QVERIFY(block.lines().constFirst().startsWith(QStringLiteral("We lift")));
            QVERIFY(block.lines().constFirst().endsWith(ellipsis));
        }
    }

    void aTextIsCutHoweverManySignsWithoutAWidthHaveToGo()
    {
        const QString hidden = QString(20'000, QChar(0x2060));
        const TextBlock block(plainText(QStringLiteral("WWWWWWWWWW") + hidden
                                        + QStringLiteral("W more words to come")),
                              {330, 40});
        QVERIFY(block.isCut());
        const QString shown = block.lines().join(QString()).remove(QChar(0x2060));
        QVERIFY(shown.startsWith(u'W'));
        QVERIFY(shown.endsWith(ellipsis));
        QVERIFY(shown.size() <= 11);
    }

    void nothingIsMissingOfABlankTextInABoxTooLowForOneLine()
    {
        for (const char *words : {"", "  ", "\n \n"}) {
            const TextBlock block(plainText(QString::fromLatin1(words)), {500, 0});
            QVERIFY(!block.isCut());
            QCOMPARE(block.lines().join(QString()).trimmed(), QString());
        }
    }

    void whateverIsCutStaysInItsBoxAndEndsWithAnEllipsis_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("characterSpacing");
        for (const double spacing : {0.0, 3.0, -2.0}) {
            QTest::addRow("words, spaced by %g", spacing) << longText() << spacing;
            QTest::addRow("one word, spaced by %g", spacing)
                << QStringLiteral("Hallelujah").repeated(40) << spacing;
            QTest::addRow("emoji, spaced by %g", spacing)
                << QStringLiteral("\U0001F600").repeated(200) << spacing;
            QTest::addRow("joined emoji among words, spaced by %g", spacing)
                << QStringLiteral("joy \U0001F468\u200d\U0001F469\u200d\U0001F467 \u2764\ufe0f ")
                       .repeated(40)
                << spacing;
        }
    }

    void whateverIsCutStaysInItsBoxAndEndsWithAnEllipsis()
    {
        QFETCH(QString, text);
        QFETCH(double, characterSpacing);
        TextElementProperties properties = sized(text, 78);
        properties.characterSpacing = characterSpacing;
        for (double width = 200; width <= 1000; width += 13) {
            const TextBlock block(properties, {width, 200});
            if (block.fit() > TextBlock::smallestFit)
                continue; // it fits
            QVERIFY2(block.bounds().height() <= 200, QByteArray::number(width).constData());
            QVERIFY2(block.lines().constLast().endsWith(ellipsis),
                     QByteArray::number(width).constData());
            QVERIFY(block.lines().constLast().size() > 1);
        }
    }

    void theEllipsisIsPaintedAtTheEndOfTheLastLine()
    {
        TextElementProperties text = sized(QStringLiteral("xxxx\n").repeated(30), 78);
        text.alignment = TextAlignmentValue::left;
        const CanvasFrame frame{200, 200, 900, 130};
        const QImage image = textImage(text, frame);
        const auto inkBetween = [&](int top, int bottom) {
            return inkOf(image.copy(0, top, canvas.width(), bottom - top));
        };
        const QRect whole = inkOf(image);
        const int lastLine = whole.bottom() - 20;
        const QRect first = inkBetween(0, lastLine);
        const QRect last = inkBetween(lastLine, canvas.height());
        QCOMPARE(last.left(), first.left());
        QVERIFY(last.right() > first.right() + 10);
    }
};

QUENARA_GUI_TEST(TestTextFitting)

} // namespace tst_text_fitting

#include "tst_text_fitting.moc"
