#include "TextBlock.h"
#include "TextImages.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_text_limits {

namespace {

constexpr TextLimits sevenLines{.smallestFit = 0.52, .lineMaximum = 7};
constexpr QSizeF roomy(1000, 5000);

TextElementProperties sized(const QString &text, double fontSize)
{
    TextElementProperties properties = plainText(text);
    properties.fontSize = fontSize;
    return properties;
}

QString lines(int count)
{
    QStringList lines;
    for (int i = 1; i <= count; ++i)
        lines.append(QStringLiteral("line %1").arg(i));
    return lines.join(QLatin1Char('\n'));
}

QString words(int count)
{
    return QStringLiteral("morning ").repeated(count).trimmed();
}

} // namespace

class TestTextLimits : public GuiTest
{
    Q_OBJECT

private slots:
    void aTextOfTooManyLinesIsShrunkToWithinHalfAUnitOfTheLargestSizeThatNeedsFewEnough_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<TextLimits>("limits");
        QTest::addColumn<QSizeF>("box");
        for (const int count : {36, 40, 50, 60}) {
            QTest::addRow("%d words in seven lines", count) << words(count) << sevenLines << roomy;
        }
        QTest::newRow("words in five lines")
            << words(30) << TextLimits{.smallestFit = 0.55, .lineMaximum = 5} << roomy;
        QTest::newRow("words in one line")
            << words(8) << TextLimits{.smallestFit = 0.5, .lineMaximum = 1} << roomy;
        QTest::newRow("words whose height counts first")
            << words(36) << sevenLines << QSizeF(1000, 250);
    }

    void aTextOfTooManyLinesIsShrunkToWithinHalfAUnitOfTheLargestSizeThatNeedsFewEnough()
    {
        QFETCH(QString, text);
        QFETCH(TextLimits, limits);
        QFETCH(QSizeF, box);
        constexpr double fontSize = 44;
        const TextBlock block(sized(text, fontSize), box, limits);
        QVERIFY2(block.fit() < 1 && block.fit() > limits.smallestFit,
                 QByteArray::number(block.fit()).constData());
        QVERIFY(block.lines().size() <= limits.lineMaximum);
        QVERIFY(!block.lines().constLast().endsWith(ellipsis));

        constexpr double halfAUnit = 0.5;
        const double found = fontSize * block.fit();
        QCOMPARE(TextBlock(sized(text, found), box, limits).fit(), 1.0);
        QVERIFY(TextBlock(sized(text, found + halfAUnit), box, limits).fit() < 1);
    }

    void aTextOfAsManyLinesAsThereMayBeIsNotShrunk_data()
    {
        QTest::addColumn<int>("count");
        for (const int count : {1, 2, 6, 7})
            QTest::addRow("%d", count) << count;
    }

    void aTextOfAsManyLinesAsThereMayBeIsNotShrunk()
    {
        QFETCH(int, count);
        const TextBlock block(sized(lines(count), 44), roomy, sevenLines);
        QCOMPARE(block.fit(), 1.0);
        QCOMPARE(block.lines().size(), count);
    }

    void whatNeedsMoreLinesAtTheSmallestSizeEndsWithTheLastOne_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QSizeF>("box");
        QTest::addColumn<int>("lineCount");
        QTest::newRow("one line too many") << lines(8) << roomy << 7;
        QTest::newRow("hundreds of lines") << lines(400) << roomy << 7;
        QTest::newRow("hundreds of words") << words(400) << roomy << 7;
        QTest::newRow("a word without end") << QString(5000, u'w') << roomy << 7;
        QTest::newRow("right-to-left words")
            << QStringLiteral("\u05e9\u05dc\u05d5\u05dd ").repeated(400) << roomy << 7;
        QTest::newRow("no room for as many lines as there may be")
            << lines(8) << QSizeF(1000, 110) << 3;
    }

    void whatNeedsMoreLinesAtTheSmallestSizeEndsWithTheLastOne()
    {
        QFETCH(QString, text);
        QFETCH(QSizeF, box);
        QFETCH(int, lineCount);
        const TextBlock block(sized(text, 44), box, sevenLines);
        QCOMPARE(block.fit(), sevenLines.smallestFit);
        QCOMPARE(block.lines().size(), lineCount);
        QVERIFY(block.lines().constLast().endsWith(ellipsis));
        QVERIFY(block.bounds().height() <= box.height());
        QVERIFY(block.bounds().width() <= box.width());
    }

    void aLongTextIsCutWhereItsBeginningIs_data()
    {
        QTest::addColumn<QString>("beginning");
        QTest::addColumn<QString>("rest");
        QTest::newRow("words") << words(1500) << words(500'000);
        QTest::newRow("lines") << lines(900) << lines(200'000);
        QTest::newRow("a word without end") << QString(9000, u'w') << QString(4'000'000, u'w');
    }

    void aLongTextIsCutWhereItsBeginningIs()
    {
        QFETCH(QString, beginning);
        QFETCH(QString, rest);
        const QSizeF box(1000, 800);
        const TextBlock expected(sized(beginning, 44), box);
        const TextBlock block(sized(beginning + rest, 44), box);
        QVERIFY(expected.isCut() && block.isCut());
        QCOMPARE(block.lines(), expected.lines());
        QCOMPARE(block.bounds(), expected.bounds());
        QCOMPARE(block.offsets().stored(block.layout().text().size()),
                 beginning.size() + rest.size());
    }

    void aTextOfMoreCharactersThanAreLaidOutIsCutThoughThereIsRoom()
    {
        const QSizeF endless(10'000, 10'000);
        const QString longest(TextBlock::longestText, u'x');
        QVERIFY(!TextBlock(sized(longest, 10), endless).isCut());
        const TextBlock cut(sized(longest + u'x', 10), endless);
        QVERIFY(cut.isCut());
        QCOMPARE(cut.layout().text(), longest + ellipsis);
        const QString pairs = QStringLiteral("x") + QStringLiteral("\U0001D11E").repeated(20'000);
        QVERIFY(!TextBlock(sized(pairs, 10), endless)
                     .layout()
                     .text()
                     .contains(QChar(0xd834) + QString(ellipsis)));
    }

    void aSlidesTextMayHaveAnyNumberOfLines()
    {
        const TextBlock block(sized(lines(60), 44), roomy);
        QCOMPARE(block.lines().size(), 60);
        QCOMPARE(block.fit(), 1.0);
    }
};

QUENARA_GUI_TEST(TestTextLimits)

} // namespace tst_text_limits

#include "tst_text_limits.moc"
