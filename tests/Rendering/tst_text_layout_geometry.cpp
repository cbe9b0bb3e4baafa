#include "TextImages.h"
#include "TextLayoutGeometry.h"

#include <QTextBoundaryFinder>

#include <array>

using namespace quenara;
using namespace quenara::test;

namespace {

constexpr QSizeF box(1500, 600);

TextElementProperties leftAligned(const QString &text)
{
    TextElementProperties properties = plainText(text);
    properties.alignment = TextAlignmentValue::left;
    return properties;
}

/// The ink of \a text alone, painted into a box at the origin, in canvas units.
QRectF inkOfText(const TextElementProperties &text)
{
    const QRect ink = inkOf(textImage(text, {200, 200, box.width(), box.height()}));
    return ink.translated(-200, -200).toRectF();
}

/// Every place that a caret can stand at.
QList<qsizetype> placesIn(const QString &text)
{
    QList<qsizetype> places{0};
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    while (finder.toNextBoundary() >= 0)
        places.append(finder.position());
    return places;
}

} // namespace

class TestTextLayoutGeometry : public GuiTest
{
    Q_OBJECT

private slots:
    void shownCharactersAreTracedToStoredOnes_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<bool>("uppercase");
        QTest::addColumn<QList<int>>("places");
        const auto row = [](const char *name, QStringView stored, QStringView shown,
                            const QList<int> &places, bool uppercase = false) {
            QTest::newRow(name) << stored.toString() << shown.toString() << uppercase << places;
        };
        row("as it is", u"abc", u"abc", {0, 1, 2, 3});
        row("in capitals", u"abc", u"ABC", {0, 1, 2, 3}, true);
        row("a capital of two letters", u"aßb", u"ASSB", {0, 1, 3, 4}, true);
        row("lines", u"a\nb", u"a\u2028b", {0, 1, 2, 3});
        row("a break of two characters", u"a\r\nb", u"a\u2028b", {0, 1, 1, 2, 3});
        row("spacing at the end of a line", u"a \t\nb c", u"a\u2028b c", {0, 1, 1, 1, 2, 3, 4, 5});
        row("spacing at the end of all", u"ab  ", u"ab", {0, 1, 2, 2, 2});
        row("a selector inside an emoji", u"\u2764\uFE0Fx", u"\u2764x", {0, 1, 1, 2});
        row("after an ellipsis", u"abcdef", u"abc\u2026", {0, 1, 2, 3, 4, 4, 4});
        constexpr std::array<char16_t, 3> half{u'a', 0xd83d, u'b'};
        row("half of a pair", QStringView(half.data(), half.size()), u"a\uFFFDb", {0, 1, 2, 3});
        row("nothing", u"", u"", {0});
    }

    void shownCharactersAreTracedToStoredOnes()
    {
        QFETCH(QString, stored);
        QFETCH(QString, shown);
        QFETCH(bool, uppercase);
        QFETCH(QList<int>, places);
        const TextOffsetMap positions(stored, shown, uppercase);
        QList<int> traced;
        for (qsizetype i = 0; i <= stored.size(); ++i)
            traced.append(int(positions.shown(i)));
        QCOMPARE(traced, places);
        QCOMPARE(positions.stored(0), 0);
        QCOMPARE(positions.stored(shown.size()), stored.size());
    }

    void theCaretStandsBesideTheInk()
    {
        const TextElementProperties text = leftAligned(QStringLiteral("HHHH"));
        const TextLayoutGeometry places(text, box);
        const QRectF ink = inkOfText(text);
        const double width = places.caret(4).x() - places.caret(0).x();
        QVERIFY(std::abs(places.caret(0).x() - ink.left()) < 0.15 * width / 4);
        QVERIFY(std::abs(places.caret(4).x() - ink.right()) < 0.15 * width / 4);
        QVERIFY(places.caret(2).top() < ink.top());
        QVERIFY(places.caret(2).bottom() > ink.bottom());
        for (int i = 1; i < 4; ++i)
            QVERIFY(std::abs(places.caret(i).x() - places.caret(0).x() - i * width / 4) < 0.01);
    }

    void piecesCoverTheInkOfTheirCharacters_data()
    {
        QTest::addColumn<TextElementProperties>("text");
        const auto row = [](const char *name, const QString &words, auto change) {
            TextElementProperties text = plainText(words);
            change(text);
            QTest::newRow(name) << text;
        };
        const auto nothing = [](TextElementProperties &) {};
        row("centred", QStringLiteral("Great is the morning"), nothing);
        row("left, padded", QStringLiteral("Great"), [](TextElementProperties &text) {
            text.alignment = TextAlignmentValue::left;
            text.padding = 40;
        });
        row("right", QStringLiteral("Great"),
            [](TextElementProperties &text) { text.alignment = TextAlignmentValue::right; });
        row("spaced capitals", QStringLiteral("Great is"), [](TextElementProperties &text) {
            text.uppercase = true;
            text.characterSpacing = 20;
        });
        row("two lines apart", QStringLiteral("Great\nis"),
            [](TextElementProperties &text) { text.lineHeight = 1.6; });
        row("shrunk", QStringLiteral("Great\nis\nthe\nmorning\nand\nthe\nevening"), nothing);
        row("right to left", QStringLiteral("\u05e9\u05dc\u05d5\u05dd"), nothing);
        row("both ways", QStringLiteral("one \u05e9\u05dc\u05d5\u05dd two"), nothing);
    }

    void piecesCoverTheInkOfTheirCharacters()
    {
        QFETCH(TextElementProperties, text);
        constexpr double overhang = 8; // letters may lean out of their places
        const TextLayoutGeometry places(text, box);
        QRectF covered;
        for (const QRectF &piece : places.pieces(0, text.text.size()))
            covered |= piece;
        const QRectF ink = inkOfText(text);
        QVERIFY(covered.adjusted(-overhang, 0, overhang, 0).contains(ink));
        QVERIFY(std::abs(covered.center().x() - ink.center().x()) < 3 * overhang);
    }

    void aPointFindsThePlaceWhoseCaretIsThere_data()
    {
        QTest::addColumn<TextElementProperties>("text");
        const auto row = [](const char *name, const QString &words, auto change) {
            TextElementProperties text = plainText(words);
            change(text);
            QTest::newRow(name) << text;
        };
        const auto nothing = [](TextElementProperties &) {};
        row("two lines", QStringLiteral("Great is the morning\nBright"), nothing);
        row("blank lines", QStringLiteral("\n\nGreat\n\nis\n"), nothing);
        row("emoji", QStringLiteral("a\U0001F44B\U0001F3FDb\u2764\uFE0Fc"), nothing);
        row("marks", QStringLiteral("e\u0301e\u0302x"), nothing);
        row("capitals", QStringLiteral("straße"),
            [](TextElementProperties &text) { text.uppercase = true; });
        row("right to left", QStringLiteral("\u05e9\u05dc\u05d5\u05dd"), nothing);
        row("nothing", QString(), nothing);
    }

    void aPointFindsThePlaceWhoseCaretIsThere()
    {
        QFETCH(TextElementProperties, text);
        const TextLayoutGeometry places(text, box);
        for (const qsizetype place : placesIn(text.text)) {
            const QPointF caret = places.caret(place).center();
            QCOMPARE(places.caret(places.positionAt(caret)).center(), caret);
        }
    }

    void aPointOutsideFindsTheNearestPlace()
    {
        const TextLayoutGeometry places(leftAligned(QStringLiteral("one\nthree")), box);
        QCOMPARE(places.positionAt({-100, -100}), 0);
        QCOMPARE(places.positionAt({5000, -100}), 3);
        QCOMPARE(places.positionAt({-100, 5000}), 4);
        QCOMPARE(places.positionAt({5000, 5000}), 9);
    }

    void linesAreThoseThatAreSeen()
    {
        const TextLayoutGeometry places(leftAligned(QStringLiteral("one two\nthree")), {260, 600});
        QCOMPARE(places.lineCount(), 3);
        QCOMPARE(places.startOfLine(0), 0);
        QCOMPARE(places.endOfLine(0), 3);
        QCOMPARE(places.startOfLine(1), 4);
        QCOMPARE(places.endOfLine(1), 7);
        QCOMPARE(places.startOfLine(2), 8);
        QCOMPARE(places.endOfLine(2), 13);
        QCOMPARE(places.lineOf(3), 0);
        QCOMPARE(places.lineOf(4), 1);
        QCOMPARE(places.lineOf(13), 2);
        QCOMPARE(places.positionInLine(0, 5000), 3);
    }

    void theCaretGoesAlongBehindSpacingAtTheEndOfALine_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("direction");
        QTest::newRow("of the last line") << "ab  " << 1;
        QTest::newRow("before a break") << "ab  \ncd" << 1;
        QTest::newRow("to the left") << QStringLiteral("\u05e9\u05dc  ") << -1;
    }

    void theCaretGoesAlongBehindSpacingAtTheEndOfALine()
    {
        QFETCH(QString, text);
        QFETCH(int, direction);
        const TextLayoutGeometry places(plainText(text), box);
        const double step = direction * (places.caret(3).x() - places.caret(2).x());
        QVERIFY(step > 0);
        QCOMPARE(direction * (places.caret(4).x() - places.caret(3).x()), step);
        QCOMPARE(places.caret(4).top(), places.caret(2).top());
    }

    void aBreakThatIsSelectedIsAsWideAsASpace()
    {
        const TextLayoutGeometry places(leftAligned(QStringLiteral("a\n\nb")), box);
        const QList<QRectF> pieces = places.pieces(1, 3);
        QCOMPARE(pieces.size(), 2);
        for (const QRectF &piece : pieces)
            QVERIFY(piece.width() > 5);
        QVERIFY(pieces.at(1).top() >= pieces.at(0).bottom());
    }

    void nothingSelectedIsNoPiece()
    {
        const TextLayoutGeometry places(plainText(QStringLiteral("abc")), box);
        QVERIFY(places.pieces(1, 1).isEmpty());
        QVERIFY(places.pieces(0, 0).isEmpty());
    }

    void whatIsTruncatedLiesAtTheEllipsis()
    {
        const QString words = QStringLiteral("Great is the morning ").repeated(40);
        const TextLayoutGeometry places(leftAligned(words), {600, 100});
        QCOMPARE(places.caret(words.size()), places.caret(words.size() - 30));
        QCOMPARE(places.positionAt({5000, 5000}), words.size());
    }
};

QUENARA_GUI_TEST_MAIN(TestTextLayoutGeometry)
#include "tst_text_layout_geometry.moc"
