#include "ProjectTemplates.h"
#include "TextImages.h"

#include <cmath>
#include <numeric>
#include <vector>

using namespace quenara;
using namespace quenara::test;

namespace tst_text_sizes {

namespace {

constexpr QSize thumbnail(64, 36);
constexpr double thumbnailTolerance = 0.08;

/// How the ink of an image is shared out over as many columns and rows as a thumbnail has.
struct InkShares
{
    std::vector<double> columns = std::vector<double>(std::size_t(thumbnail.width()));
    std::vector<double> rows = std::vector<double>(std::size_t(thumbnail.height()));
};

InkShares inkSharesOf(const QImage &image)
{
    std::vector<int> columns(std::size_t(image.width()));
    InkShares shares;
    double total = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto *pixel = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        int row = 0;
        for (int &column : columns) {
            const int ink = qGreen(*pixel++);
            column += ink;
            row += ink;
        }
        shares.rows[std::size_t(y * thumbnail.height() / image.height())] += row;
        total += row;
    }
    for (int x = 0; x < image.width(); ++x) {
        shares.columns[std::size_t(x * thumbnail.width() / image.width())] +=
            columns[std::size_t(x)];
    }
    for (std::vector<double> *values : {&shares.columns, &shares.rows}) {
        for (double &value : *values)
            value /= total;
    }
    return shares;
}

/// The share of the ink that lies elsewhere: 0 to 1.
double moved(const std::vector<double> &a, const std::vector<double> &b)
{
    return std::transform_reduce(a.begin(), a.end(), b.begin(), 0.0, std::plus<>(),
                                 [](double p, double q) { return std::abs(p - q); })
        / 2;
}

QString hymn()
{
    return QStringLiteral("The river carries morning light, and every hill begins to sing. "
                          "We gather what the day has sown\nand quiet evening brings it home, "
                          "until the stars are all alight and all the earth is still.");
}

/// The text layers of a slide alone, in white on black.
Slide textsOf(Slide slide)
{
    slide.design.background = solidBackground({0, 0, 0, 1});
    slide.design.elements.removeIf([](const SlideElement &element) { return !element.text; });
    for (SlideElement &element : slide.design.elements) {
        element.text->textColor = {1, 1, 1, 1};
        element.text->shadow.reset();
        element.text->outline.reset();
        element.text->backgroundFill.reset();
    }
    return slide;
}

void addTexts()
{
    QTest::addColumn<Slide>("slide");
    for (const SlideTemplate &item : ProjectTemplates::templates()) {
        QTest::newRow(qPrintable(item.id))
            << textsOf(ProjectTemplates::slide(QStringLiteral("Evening at the river"), hymn(), 0,
                                               item.id, QStringLiteral("Public domain")));
    }
    const CanvasFrame frame{160, 90, 1600, 900};
    const auto row = [&](const char *name, const TextElementProperties &text) {
        QTest::newRow(name) << textSlide(text, frame);
    };
    TextElementProperties text = plainText(hymn());
    row("a hymn", text);
    for (const TextAlignmentValue alignment :
         {TextAlignmentValue::left, TextAlignmentValue::right}) {
        text.alignment = alignment;
        QTest::newRow(qPrintable(QStringLiteral("to the %1").arg(rawValue(alignment))))
            << textSlide(text, frame);
    }
    text = plainText(hymn());
    text.characterSpacing = 3.7;
    row("spaced", text);
    text = plainText(hymn().repeated(3));
    row("shrunk", text);
    text = plainText(hymn().repeated(9));
    row("truncated", text);
    text = plainText(hymn());
    text.fontFamily = QStringLiteral("Inter");
    text.fontSize = 71.3;
    text.weight = TextFontWeight::heavy;
    row("in another face at an odd size", text);
    row("a word that is broken inside", plainText(QStringLiteral("Hallelujah").repeated(14)));
    row("kerned pairs", plainText(QStringLiteral("AVATAR Tolstoy WAVE Yes To LTA ").repeated(9)));
    row("ligatures", plainText(QStringLiteral("official affluent fjord waffle ").repeated(8)));
    row("blank lines",
        plainText(QStringLiteral("one\n\nand three together\n\n\nsix and the rest")));
    row("right-to-left", plainText(QChar(0x202e) + hymn()));
    row("emoji among letters",
        plainText(QStringLiteral("light \U0001f331 and water \u2b50 and bread ").repeated(6)));
    row("Hebrew",
        plainText(
            QStringLiteral("\u05d0\u05d5\u05e8 \u05d1\u05d1\u05d5\u05e7\u05e8 ").repeated(12)));
    row("many small words", plainText(QStringLiteral("a bb ccc i j l ").repeated(22)));
}

} // namespace

class TestTextSizes : public GuiTest
{
    Q_OBJECT

private slots:
    void aSlideBreaksItsLinesAlikeAtEverySize_data() { addTexts(); }

    void aSlideBreaksItsLinesAlikeAtEverySize()
    {
        QFETCH(Slide, slide);
        const InkShares onCanvas = inkSharesOf(rendered({.slide = slide}, canvas));
        for (const QSize &size : {QSize(1280, 720), QSize(1920, 1080), QSize(3840, 2160)}) {
            for (const int ratio : {1, 2}) {
                const InkShares shares =
                    inkSharesOf(rendered({.slide = slide}, size / ratio, ratio));
                QVERIFY(moved(shares.columns, onCanvas.columns) < 0.02);
                QVERIFY(moved(shares.rows, onCanvas.rows)
                        < 0.05); // whole rows, half of one at most
            }
        }
        // So small, letters stand on whole rows and are counted by their columns alone.
        for (const int ratio : {1, 2}) {
            const InkShares shares = inkSharesOf(rendered({.slide = slide}, thumbnail, ratio));
            QVERIFY(moved(shares.columns, onCanvas.columns) < thumbnailTolerance);
        }
    }

    void oneWordOnAnotherLineWouldBeSeen_data()
    {
        QTest::addColumn<QSize>("size");
        for (const QSize &size : {thumbnail, QSize(1280, 720), canvas})
            QTest::addRow("%d by %d", size.width(), size.height()) << size;
    }

    void oneWordOnAnotherLineWouldBeSeen()
    {
        QFETCH(QSize, size);
        const auto columnsOf = [&](const QString &text) {
            const Slide slide = textSlide(plainText(text), {160, 90, 1600, 900});
            return inkSharesOf(rendered({.slide = slide}, size)).columns;
        };
        const auto early = columnsOf(QStringLiteral("We gather what\nthe day has sown\nat home"));
        const auto late = columnsOf(QStringLiteral("We gather what the\nday has sown\nat home"));
        QVERIFY(moved(early, late) > thumbnailTolerance);
    }
};

QUENARA_GUI_TEST(TestTextSizes)

} // namespace tst_text_sizes

#include "tst_text_sizes.moc"
