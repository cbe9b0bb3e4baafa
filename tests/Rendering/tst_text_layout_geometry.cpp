#include "TextImages.h"
#include "TextLayoutGeometry.h"

#include <QTextBoundaryFinder>

#include <functional>

using namespace quenara;
using namespace quenara::test;

namespace tst_text_layout_geometry {

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

/// Adds a row with \a words as a plain text that \a change then alters.
void addTextRow(
    const char *name, const QString &words,
    const std::function<void(TextElementProperties &)> &change = [](TextElementProperties &) {})
{
    TextElementProperties text = plainText(words);
    change(text);
    QTest::newRow(name) << text;
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
    void theCaretStandsBesideTheInk()
    {
        const TextElementProperties text = leftAligned(QStringLiteral("HHHH"));
        const TextLayoutGeometry geometry(text, box);
        const QRectF ink = inkOfText(text);
        const double width = geometry.caret(4).x() - geometry.caret(0).x();
        QVERIFY(std::abs(geometry.caret(0).x() - ink.left()) < 0.15 * width / 4);
        QVERIFY(std::abs(geometry.caret(4).x() - ink.right()) < 0.15 * width / 4);
        QVERIFY(geometry.caret(2).top() < ink.top());
        QVERIFY(geometry.caret(2).bottom() > ink.bottom());
        for (int i = 1; i < 4; ++i)
            QVERIFY(std::abs(geometry.caret(i).x() - geometry.caret(0).x() - i * width / 4) < 0.01);
    }

    void piecesCoverTheInkOfTheirCharacters_data()
    {
        QTest::addColumn<TextElementProperties>("text");
        addTextRow("centred", QStringLiteral("Great is the morning"));
        addTextRow("left, padded", QStringLiteral("Great"), [](TextElementProperties &text) {
            text.alignment = TextAlignmentValue::left;
            text.padding = 40;
        });
        addTextRow("right", QStringLiteral("Great"),
                   [](TextElementProperties &text) { text.alignment = TextAlignmentValue::right; });
        addTextRow("spaced capitals", QStringLiteral("Great is"), [](TextElementProperties &text) {
            text.uppercase = true;
            text.characterSpacing = 20;
        });
        addTextRow("two lines apart", QStringLiteral("Great\nis"),
                   [](TextElementProperties &text) { text.lineHeight = 1.6; });
        addTextRow("shrunk", QStringLiteral("Great\nis\nthe\nmorning\nand\nthe\nevening"));
        addTextRow("right to left", QStringLiteral("\u05e9\u05dc\u05d5\u05dd"));
        addTextRow("both ways", QStringLiteral("one \u05e9\u05dc\u05d5\u05dd two"));
    }

    void piecesCoverTheInkOfTheirCharacters()
    {
        QFETCH(TextElementProperties, text);
        constexpr double overhang = 8; // letters may lean out of their places
        constexpr double row = 1; // lines stand on whole rows of pixels
        const TextLayoutGeometry geometry(text, box);
        QRectF covered;
        for (const QRectF &piece : geometry.pieces(0, text.text.size()))
            covered |= piece;
        const QRectF ink = inkOfText(text);
        QVERIFY(covered.adjusted(-overhang, -row, overhang, row).contains(ink));
        QVERIFY(std::abs(covered.center().x() - ink.center().x()) < 3 * overhang);
    }

    void aPointFindsThePlaceWhoseCaretIsThere_data()
    {
        QTest::addColumn<TextElementProperties>("text");
        addTextRow("two lines", QStringLiteral("Great is the morning\nBright"));
        addTextRow("blank lines", QStringLiteral("\n\nGreat\n\nis\n"));
        addTextRow("emoji", QStringLiteral("a\U0001F44B\U0001F3FDb\u2764\uFE0Fc"));
        addTextRow("marks", QStringLiteral("e\u0301e\u0302x"));
        addTextRow("capitals", QStringLiteral("straße"),
                   [](TextElementProperties &text) { text.uppercase = true; });
        addTextRow("right to left", QStringLiteral("\u05e9\u05dc\u05d5\u05dd"));
        addTextRow("nothing", QString());
    }

    void aPointFindsThePlaceWhoseCaretIsThere()
    {
        QFETCH(TextElementProperties, text);
        const TextLayoutGeometry geometry(text, box);
        for (const qsizetype place : placesIn(text.text)) {
            const QPointF caret = geometry.caret(place).center();
            QCOMPARE(geometry.caret(geometry.positionAt(caret)).center(), caret);
        }
    }

    void aPointOutsideFindsTheNearestPlace()
    {
        const TextLayoutGeometry geometry(leftAligned(QStringLiteral("one\nthree")), box);
        QCOMPARE(geometry.positionAt({-100, -100}), 0);
        QCOMPARE(geometry.positionAt({5000, -100}), 3);
        QCOMPARE(geometry.positionAt({-100, 5000}), 4);
        QCOMPARE(geometry.positionAt({5000, 5000}), 9);
    }

    void linesAreThoseThatAreSeen()
    {
        const TextLayoutGeometry geometry(leftAligned(QStringLiteral("one two\nthree")),
                                          {260, 600});
        QCOMPARE(geometry.lineCount(), 3);
        QCOMPARE(geometry.startOfLine(0), 0);
        QCOMPARE(geometry.endOfLine(0), 3);
        QCOMPARE(geometry.startOfLine(1), 4);
        QCOMPARE(geometry.endOfLine(1), 7);
        QCOMPARE(geometry.startOfLine(2), 8);
        QCOMPARE(geometry.endOfLine(2), 13);
        QCOMPARE(geometry.lineOf(3), 0);
        QCOMPARE(geometry.lineOf(4), 1);
        QCOMPARE(geometry.lineOf(13), 2);
        QCOMPARE(geometry.positionInLine(0, 5000), 3);
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
        const TextLayoutGeometry geometry(plainText(text), box);
        const double step = direction * (geometry.caret(3).x() - geometry.caret(2).x());
        QVERIFY(step > 0);
        QCOMPARE(direction * (geometry.caret(4).x() - geometry.caret(3).x()), step);
        QCOMPARE(geometry.caret(4).top(), geometry.caret(2).top());
    }

    void aBreakThatIsSelectedIsAsWideAsASpace()
    {
        const TextLayoutGeometry geometry(leftAligned(QStringLiteral("a\n\nb")), box);
        const QList<QRectF> pieces = geometry.pieces(1, 3);
        QCOMPARE(pieces.size(), 2);
        for (const QRectF &piece : pieces)
            QVERIFY(piece.width() > 5);
        QVERIFY(pieces.at(1).top() >= pieces.at(0).bottom());
    }

    void nothingSelectedIsNoPiece()
    {
        const TextLayoutGeometry geometry(plainText(QStringLiteral("abc")), box);
        QVERIFY(geometry.pieces(1, 1).isEmpty());
        QVERIFY(geometry.pieces(0, 0).isEmpty());
    }

    void whatIsTruncatedLiesAtTheEllipsis()
    {
        const QString words = QStringLiteral("Great is the morning ").repeated(40);
        const TextLayoutGeometry geometry(leftAligned(words), {600, 100});
        QCOMPARE(geometry.caret(words.size()), geometry.caret(words.size() - 30));
        QCOMPARE(geometry.positionAt({5000, 5000}), words.size());
    }
};

QUENARA_GUI_TEST(TestTextLayoutGeometry)

} // namespace tst_text_layout_geometry

#include "tst_text_layout_geometry.moc"
