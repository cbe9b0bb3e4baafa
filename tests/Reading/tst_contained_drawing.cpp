#include "ContainedDrawing.h"
#include "Files.h"
#include "ImageBytes.h"
#include "Images.h"
#include "TestMain.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QStringConverter>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <sys/stat.h>
#include <vector>
#include <zlib.h>

using namespace quenara;
using namespace quenara::test;
using namespace Qt::StringLiterals;

namespace tst_contained_drawing {

namespace {

const QByteArray head = "<svg xmlns='http://www.w3.org/2000/svg' "
                        "xmlns:xlink='http://www.w3.org/1999/xlink' width='48' height='32'>";
const QByteArray ground = "<rect width='48' height='32' fill='#0000ff'/>";

QByteArray drawingOf(const QByteArray &content)
{
    return head + ground + content + "</svg>";
}

QByteArray dataUrl(const char *type, const QByteArray &bytes)
{
    return QByteArray("data:image/") + type + ";base64," + bytes.toBase64();
}

QByteArray imageOf(const QByteArray &reference, const QByteArray &attribute = "xlink:href")
{
    return "<image width='48' height='32' " + attribute + "='" + reference + "'/>";
}

QByteArray redPng()
{
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    return encoded(image, "PNG");
}

QByteArray largePng(int side)
{
    QImage large(side, side, QImage::Format_Mono);
    large.setColorTable({qRgb(0, 0, 0), qRgb(255, 0, 0)});
    large.fill(1);
    return encoded(large, "PNG");
}

QByteArray compressed(const QByteArray &bytes)
{
    QByteArray result(qsizetype(compressBound(uLong(bytes.size()))) + 64, '\0');
    z_stream stream{};
    constexpr int gzip = 16;
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, MAX_WBITS + gzip, MAX_MEM_LEVEL,
                 Z_DEFAULT_STRATEGY);
    QByteArray input = bytes;
    stream.next_in = reinterpret_cast<Bytef *>(input.data());
    stream.avail_in = uInt(input.size());
    stream.next_out = reinterpret_cast<Bytef *>(result.data());
    stream.avail_out = uInt(result.size());
    deflate(&stream, Z_FINISH);
    result.truncate(result.size() - qsizetype(stream.avail_out));
    deflateEnd(&stream);
    return result;
}

QImage imageIn(const QByteArray &bytes)
{
    ImageBytes image(bytes);
    return image.reader().read();
}

QByteArray contained(const QByteArray &bytes)
{
    DrawingAllowance allowance;
    return containedDrawing(bytes, allowance);
}

/// A chain of groups, each with ten uses of the one before it.
QByteArray useBomb(int levels)
{
    QByteArray content = "<defs><g id='g0'><rect width='1' height='1'/></g>";
    for (int level = 1; level <= levels; ++level) {
        const QByteArray use = "<use xlink:href='#g" + QByteArray::number(level - 1) + "'/>";
        content += "<g id='g" + QByteArray::number(level) + "'>" + use.repeated(10) + "</g>";
    }
    return drawingOf(content + "</defs><use xlink:href='#g" + QByteArray::number(levels) + "'/>");
}

/// \a part as often as \a count says, each with its number in the place of "%".
QByteArray numbered(const QByteArray &part, int count)
{
    QByteArray all;
    for (int i = 0; i < count; ++i)
        all += QByteArray(part).replace('%', QByteArray::number(i));
    return all;
}

/// What covers much of a screen, or crosses it, and so takes long to paint if there is much of it.
struct CostlyKind
{
    const char *name;
    QByteArray part; ///< called "a"
    int enough; ///< how often a drawing may well have it
    int tooMany;

    /// The part as often as \a count says.
    QByteArray drawing(int count) const
    {
        const QByteArray ofAScreen = QByteArray(head).replace("48", "1920").replace("32", "1080");
        return ofAScreen + "<defs>" + part + "</defs>"
            + QByteArray("<use xlink:href='#a'/>").repeated(count) + "</svg>";
    }
};

/// A path that goes up and down \a count times where it has covered each pixel of a square before.
QByteArray tallPath(int count)
{
    QByteArray path = "M0 0";
    for (int y = 0; y < 1080; y += 2)
        path += "L1920 " + QByteArray::number(y) + "L0 " + QByteArray::number(y + 1);
    return "<path id='a' d='" + path + "L1919 0" + QByteArray("V1080V0").repeated(count) + "'/>";
}

const std::vector<CostlyKind> costlyKinds{
    {"dashed lines with round ends",
     "<path id='a' d='M0 0L1920 1080' stroke='red' stroke-width='9' stroke-linecap='round' "
     "stroke-dasharray='9 18'/>",
     50, 45'000},
    {"wide dashed lines with round ends",
     "<path id='a' d='M0 0L1920 1080' stroke='red' stroke-width='200' stroke-linecap='round' "
     "stroke-dasharray='10 10'/>",
     5, 100},
    {"rectangles as large as the drawing", "<rect id='a' width='1920' height='1080' fill='red'/>",
     300, 45'000},
    {"translucent groups",
     "<g id='a' opacity='.5'><rect width='1920' height='1080' fill='red'/></g>", 100, 12'000},
    {"gradients",
     "<linearGradient id='g'><stop offset='0' stop-color='red'/>"
     "<stop offset='1' stop-color='lime'/></linearGradient>"
     "<rect id='a' width='1920' height='1080' fill='url(#g)'/>",
     50, 9000},
    {"wide round lines",
     "<circle id='a' cx='960' cy='540' r='400' fill='green' stroke='red' stroke-width='50'/>", 300,
     45'000},
    {"lines that cross one another",
     "<path id='a' d='M0 0" + QByteArray("L1920 1080L0 1079L1920 0L0 1").repeated(9)
         + "' fill='none' stroke='red' stroke-width='100' stroke-linejoin='round'/>",
     5, 500},
    {"a path with many tall lines", tallPath(50), 1, 300},
    {"words in large letters", "<text id='a' y='540' font-size='200' fill='red'>words words</text>",
     50, 10'000},
};

QByteArray inEncoding(QStringEncoder::Encoding encoding, const QByteArray &text)
{
    QStringEncoder encoder(encoding, QStringEncoder::Flag::WriteBom);
    return encoder.encode(QString::fromUtf8(text));
}

QByteArray declaring(const char *encoding, const QByteArray &text)
{
    return QByteArray("<?xml version='1.0' encoding='") + encoding + "'?>" + text;
}

/// Elements with the style rules that are compared with them.
QByteArray styled(const QByteArray &rules, const QByteArray &elements)
{
    return drawingOf("<style>" + rules + "</style>" + elements);
}

const CostlyKind &gradients()
{
    return *std::find_if(costlyKinds.cbegin(), costlyKinds.cend(), [](const CostlyKind &kind) {
        return QByteArrayView(kind.name) == "gradients";
    });
}

QByteArray nested(int depth)
{
    return drawingOf(QByteArray("<g>").repeated(depth) + QByteArray("</g>").repeated(depth));
}

} // namespace

class TestContainedDrawing : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QLoggingCategory::setFilterRules(u"qt.gui.imageio*=false\nqt.svg*=false"_s);
        QVERIFY(m_folder.isValid());
        writeFile(path("red.png"), redPng());
        writeFile(path("red.svg"), head + "<rect id='r' width='48' height='32' fill='red'/></svg>");
        writeFile(path("red.css"), "rect { fill: #ff0000 !important }");
        QCOMPARE(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    }

    void whatIsOutsideIsNotSeen_data()
    {
        QTest::addColumn<QByteArray>("drawing");
        const QByteArray folder = QFile::encodeName(m_folder.path());
        const QByteArray png = folder + "/red.png";
        const auto row = [](const char *name, const QByteArray &drawing) {
            QTest::newRow(name) << drawing;
        };
        row("a file by its path", drawingOf(imageOf(png)));
        row("a file by its address", drawingOf(imageOf("file://" + png)));
        row("without a prefix", drawingOf(imageOf(png, "href")));
        row("with another prefix",
            drawingOf("<g xmlns:x='http://www.w3.org/1999/xlink'>" + imageOf(png, "x:href")
                      + "</g>"));
        row("behind a space", drawingOf(imageOf(" " + png)));
        row("behind a character reference", drawingOf(imageOf("&#47;" + png.mid(1))));
        row("a pipe", drawingOf(imageOf(folder + "/pipe")));
        row("a device", drawingOf(imageOf("/dev/tty")));
        row("an endless device", drawingOf(imageOf("/dev/zero")));
        row("an address", drawingOf(imageOf("http://127.0.0.1:9/red.png")));
        row("a file whose path begins as a data URL does",
            drawingOf(imageOf("data/../../../../../../../../../../.." + png)));
        row("a data URL that is no base64 and a path",
            drawingOf(imageOf("data:/../../../../../../../../../../../.." + png)));
        row("a part of another drawing", drawingOf("<use xlink:href='" + folder + "/red.svg#r'/>"));
        row("a part of another drawing as a colour",
            drawingOf("<rect width='48' height='32' fill='url(" + folder + "/red.svg#r) none'/>"));
        row("a style sheet that an instruction names",
            "<?xml version=\"1.0\"?>\n<?xml-stylesheet type=\"text/css\" href=\"" + folder
                + "/red.css\"?>\n" + drawingOf({}));
        row("a style sheet that rules import",
            drawingOf("<style>@import url(" + folder + "/red.css);</style>"));
        row("a base", drawingOf("<g xml:base='" + folder + "/'>" + imageOf("red.png") + "</g>"));
        row("an entity in a file",
            "<!DOCTYPE svg [<!ENTITY red SYSTEM '" + folder + "/red.svg'>]>"
                + drawingOf("<g>&red;</g>"));
        row("a reference that the document type sets",
            "<!DOCTYPE svg [<!ATTLIST image xlink:href CDATA '" + png + "'>]>"
                + drawingOf("<image width='48' height='32'/>"));
        row("within a drawing within",
            drawingOf(imageOf(dataUrl("svg+xml", drawingOf(imageOf(png))))));
        row("within a compressed drawing", compressed(drawingOf(imageOf(png))));
    }

    void whatIsOutsideIsNotSeen()
    {
        QFETCH(QByteArray, drawing);
        const QImage expected = imageIn(drawingOf({}));
        QCOMPARE(expected.size(), QSize(48, 32));
        QCOMPARE(expected.pixel(20, 10), qRgb(0, 0, 255));
        QCOMPARE(imageIn(drawing), expected);
    }

    /// Whatever reads the drawing, also one that knows more than Qt does.
    void noAddressIsLeft_data()
    {
        QTest::addColumn<QByteArray>("content");
        const auto row = [](const char *name, const QByteArray &content) {
            QTest::newRow(name) << content;
        };
        row("in a font's source",
            "<style>@font-face { font-family: x; src: URL( 'outside' ) }</style>");
        row("behind escapes", "<style>rect { fill: u\\72l(outside) }</style>");
        row("in pieces", "<style>@imp<![CDATA[ort 'outside';]]></style>");
        row("behind remarks",
            "<style>/*/*/@import 'outside';rect{fill:url(/**/outside)}/*</style>");
        row("in a style attribute", "<rect style='fill:url( outside#a)'/>");
        row("in an attribute", "<rect mask='url(outside)'/>");
        row("of an animation", "<image><set attributeName='xlink:href'/></image>");
        row("of a link", "<a xlink:href='outside'/>");
        row("of a script", "<script src='outside'/>");
    }

    void noAddressIsLeft()
    {
        QFETCH(QByteArray, content);
        const QByteArray rewritten = contained(drawingOf(content));
        QVERIFY(rewritten.contains("#0000ff"));
        QVERIFY(!rewritten.contains("import"));
        QVERIFY(!rewritten.contains("attributeName"));
        for (qsizetype at = rewritten.indexOf("outside"); at >= 0;
             at = rewritten.indexOf("outside", at + 1))
            QCOMPARE(rewritten.at(at - 1), '#');
    }

    void whatIsInsideIsSeen_data()
    {
        QTest::addColumn<QByteArray>("drawing");
        const QByteArray red = dataUrl("png", redPng());
        const QByteArray rect = "<rect width='48' height='32' fill='#ff0000'/>";
        const auto row = [](const char *name, const QByteArray &drawing) {
            QTest::newRow(name) << drawing;
        };
        row("an image", drawingOf(imageOf(red)));
        row("an image in lines", drawingOf(imageOf(QByteArray(red).insert(60, "\n  "))));
        row("an image in a drawing within",
            drawingOf(imageOf(dataUrl("svg+xml", drawingOf(imageOf(red))))));
        row("a part that is used",
            drawingOf("<defs><g id='r'>" + rect + "</g></defs><use xlink:href='#r'/>"));
        row("a gradient",
            drawingOf("<linearGradient id='r'><stop stop-color='red'/></linearGradient>"
                      "<rect width='48' height='32' fill='url(#r)'/>"));
        row("rules",
            drawingOf("<style>.r { fill: #ff0000 }</style>"
                      "<rect class='r' width='48' height='32'/>"));
        row("what a prefix names",
            "<?xml version='1.0'?><s:svg xmlns:s='http://www.w3.org/2000/svg' width='48' "
            "height='32'>"
            "<s:rect width='48' height='32' fill='#ff0000'/></s:svg>");
        row("a link to its beginning",
            drawingOf("<g id='top'><a xlink:href='#top'>" + rect + "</a></g>"));
        row("what a document type describes",
            "<!DOCTYPE svg PUBLIC '-//W3C//DTD SVG 1.1//EN' 'http://127.0.0.1:9/svg11.dtd'>"
                + drawingOf(rect));
        row("entities for namespaces",
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!-- \xc3\xbc -->\n<!DOCTYPE svg ["
            "<!ENTITY ns_x \"http://ns.example.org/x/\">]>\n"
                + QByteArray(drawingOf(rect)).replace("<svg ", "<svg xmlns:x='&ns_x;' "));
        row("entities after a mark of the byte order",
            "\xef\xbb\xbf<?xml version=\"1.0\"?><!DOCTYPE svg [<!ENTITY e \"a\">]>"
                + drawingOf(rect));
        row("after compression", compressed(drawingOf(rect)));
        row("after a document type with brackets and quotes",
            "<?xml version='1.0'?><!-- < --><!DOCTYPE svg [<!-- ' > --><?a > ?><!ENTITY a \"'>]>\">"
            "<!ATTLIST g b CDATA '\"<'>]>"
                + drawingOf(rect));
        row("dashes that a scale hides",
            drawingOf("<g transform='scale(0)'><path d='M1 2L3 4' stroke='red' "
                      "stroke-dasharray='1 1'/></g>"
                      + rect));
        const QByteArray name = "<!-- \xc3\xbc \xe4\xbc\xbc -->";
        row("in two bytes a character", inEncoding(QStringEncoder::Utf16, name + drawingOf(rect)));
        row("in two bytes, the larger first",
            inEncoding(QStringEncoder::Utf16BE, declaring("UTF-16", name + drawingOf(rect))));
        row("in four bytes a character", inEncoding(QStringEncoder::Utf32, name + drawingOf(rect)));
        row("in one byte a character", declaring("ISO-8859-1", "<!-- \xfc -->" + drawingOf(rect)));
    }

    void whatIsInsideIsSeen()
    {
        QFETCH(QByteArray, drawing);
        const QImage image = imageIn(drawing);
        QCOMPARE(image.size(), QSize(48, 32));
        QCOMPARE(image.pixel(20, 10), qRgb(255, 0, 0));
    }

    void anEntityIsNotExpanded()
    {
        const QByteArray rewritten = contained("<!DOCTYPE svg [<!ENTITY e '<rect/>expanded'>]>"
                                               + drawingOf("<text fill='&e;'>&e;</text>"));
        QVERIFY(rewritten.contains(">e</text>") && !rewritten.contains("&e;"));
        QVERIFY(!rewritten.contains("expanded"));
    }

    void theDocumentTypeAddsNoAttributes()
    {
        const QByteArray type =
            "<!DOCTYPE svg [<!ATTLIST rect" + numbered(" a% CDATA '>'", 100'000) + ">]>";
        const QByteArray rewritten = contained(type + drawingOf({}));
        QCOMPARE(rewritten, contained(drawingOf({})));
        QVERIFY(!rewritten.isEmpty());
    }

    void whatIsNoDrawingOrHoldsTooMuchIsNone_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const auto row = [](const char *name, const QByteArray &bytes) {
            QTest::newRow(name) << bytes;
        };
        QByteArray laughs = "<!DOCTYPE svg [<!ENTITY a0 'ha'>";
        for (int level = 1; level <= 30; ++level) {
            const QByteArray entity = "&a" + QByteArray::number(level - 1) + ";";
            laughs += "<!ENTITY a" + QByteArray::number(level) + " '" + entity.repeated(10) + "'>";
        }
        row("nothing", {});
        row("words", "Only words.");
        row("an element that does not end", head + ground);
        row("an entity that nothing declares", drawingOf("<text>&unknown;</text>"));
        row("elements nested too deeply", nested(100'000));
        row("a billion uses", useBomb(9));
        row("uses without end",
            drawingOf("<g id='a'><use xlink:href='#b'/></g>"
                      "<g id='b'><use xlink:href='#a'/></g>"));
        row("a pattern of itself",
            drawingOf("<pattern id='p'><rect fill='url(#p)' width='9' height='9'/>"
                      "</pattern><rect fill='url(#p)' width='48' height='32'/>"));
        row("too many elements", drawingOf(QByteArray("<g/>").repeated(100'001)));
        row("an encoding with shifts", declaring("UTF-7", drawingOf({})));
        row("an encoding with escapes", declaring("ISO-2022-JP", drawingOf({})));
        row("an encoding of other letters", declaring("IBM037", drawingOf({})));
        row("bytes that are none of their encoding", drawingOf("<text>\xff</text>"));
        row("two document types", "<!DOCTYPE svg><!DOCTYPE svg>" + drawingOf({}));
        row("too many stops",
            drawingOf("<linearGradient>" + QByteArray("<stop/>").repeated(1001)
                      + "</linearGradient>"));
        row("many uses of many elements of one name",
            drawingOf(QByteArray("<g id='a'/>").repeated(45'000)
                      + QByteArray("<use xlink:href='#a'/>").repeated(45'000)));
        row("many uses of an image",
            drawingOf("<g id='a'>" + imageOf(dataUrl("png", redPng())) + "</g>"
                      + QByteArray("<use xlink:href='#a'/>").repeated(10'000)));
        for (const CostlyKind &kind : costlyKinds)
            row(kind.name, kind.drawing(kind.tooMany));
        for (const char *transform : {"scale(0)", "scale(1 0)", "scale(1e200) scale(1e200)"}) {
            const QByteArray dashes = QByteArray("<g transform='") + transform
                + "'><path d='M1 2L3 4' stroke='red' stroke-dasharray='1 1'/></g>";
            row(transform, gradients().drawing(20'000).replace("<defs>", dashes + "<defs>"));
        }
        row("a costly drawing within",
            drawingOf(imageOf(dataUrl("svg+xml", costlyKinds[2].drawing(1500)))));
        row("a small file that becomes a large one",
            compressed(drawingOf(QByteArray(qsizetype(200) << 20U, ' '))));
        row("a compressed file that is cut short", compressed(drawingOf({})).chopped(12));
        row("entities within a broken document", laughs + "]>" + head + "&a30;");
    }

    void whatIsNoDrawingOrHoldsTooMuchIsNone()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(contained(bytes).isEmpty());
        QVERIFY(imageIn(bytes).isNull());
    }

    void whatTakesLongToReadIsNone_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const auto row = [](const char *name, const QByteArray &bytes) {
            QTest::newRow(name) << bytes;
        };
        const QByteArray attributes = "<g" + numbered(" a% = \"1\"", 3000) + "/>";
        row("many attributes", drawingOf(attributes));
        row("many attributes in characters of two bytes",
            inEncoding(QStringEncoder::Utf16, drawingOf(attributes)));
        row("many attributes with characters that have a byte of a tag",
            inEncoding(QStringEncoder::Utf16,
                       drawingOf(QByteArray(attributes).replace("1", "\xc4\xbc\xe3\xb0\x80"))));
        row("many attributes of many elements",
            drawingOf(("<g" + numbered(" a%=''", 10) + "/>").repeated(5000)));
        row("many namespaces",
            head + "<g" + numbered(" xmlns:n%='u%'", 1000) + ">"
                + ("<g" + numbered(" n0:a%=''", 20) + "/>").repeated(600) + "</g></svg>");
        row("characters written as references",
            drawingOf("<desc>" + QByteArray("&lt;").repeated(60'000) + "</desc>"));
        row("comments", drawingOf(QByteArray("<!---->").repeated(60'000)));
        row("spaces", drawingOf(QByteArray(2'000'000, ' ')));
        row("spaces after compression", compressed(drawingOf(QByteArray(2'000'000, ' '))));
        row("declarations of a style",
            drawingOf("<g style='" + QByteArray("fill:red;").repeated(30'000) + "'/>"));
        row("classes", drawingOf("<g class='" + QByteArray("c ").repeated(40'000) + "'/>"));
        row("references", drawingOf("<g x='" + QByteArray("url(#c)").repeated(40'000) + "'/>"));
        row("a large image", drawingOf(imageOf(dataUrl("png", largePng(1500)))));

        const QByteArray groups = QByteArray("<g id='b' class='c'/>").repeated(600);
        const auto many = [](const QByteArray &part) { return part.repeated(1000); };
        row("rules", styled(many("*{fill:red}"), groups));
        row("alternatives in a rule", styled(many("*,") + "*{fill:red}", groups));
        row("attributes in a selector", styled(many("[id]") + "{fill:red}", groups));
        row("classes in a selector", styled(many(".c") + "{fill:red}", groups));
        row("identifiers in a selector", styled(many("#b") + "{fill:red}", groups));
        row("names in a selector", styled(many("g ") + "{fill:red}", groups));
        row("rules for a class", styled(many(".C{fill:red}"), groups));
        row("declarations for a class", styled(".c{" + many("fill:red;") + "}", groups));
        row("rules in a condition", styled("@media all{" + many("*{fill:red}") + "}", groups));
        row("rules for a name", styled(many("g{fill:red}"), groups));
        row("rules after a remark", styled("/*{*/" + many("*{fill:red}"), groups));
        row("rules after others that do not end",
            drawingOf("<style>z{</style><style>" + many("*{fill:red}") + "</style>" + groups));
        row("rules after an element among them", styled("<g/>" + many("*{fill:red}"), groups));
        row("style sheets", drawingOf(many("<style>a</style>") + groups));
        row("elements beside another", styled("z + g,h + g{fill:red}", groups));
        row("elements somewhere after another", styled("z ~ g{fill:red}", groups));
        row("classes of an element",
            styled(many(".d{fill:red}"), "<g class='" + many("c c c ") + "'/>"));
        row("classes around elements",
            styled(".z .c{fill:red}", "<g class='" + many("d ") + "'>" + groups + "</g>"));

        const auto within = [](const QByteArray &drawing) {
            return drawingOf(imageOf(dataUrl("svg+xml", drawing)).repeated(20));
        };
        row("small style sheets within",
            within(styled(QByteArray("*{fill:red}").repeated(40), groups.first(2100))));
        row("small files within that become large ones",
            within(compressed(drawingOf(QByteArray(50'000, ' ')))));
    }

    void whatTakesLongToReadIsNone()
    {
        QFETCH(QByteArray, bytes);
        DrawingAllowance ample{.effort = 1e12};
        QVERIFY(!containedDrawing(bytes, ample).isEmpty());
        DrawingAllowance little{.effort = 3e7};
        QVERIFY(containedDrawing(bytes, little).isEmpty());
    }

    void rulesWhoseEndsAreHiddenAreLeftOut()
    {
        const QByteArray rewritten = contained(styled("z{a:'{'}.c{fill:red}", "<g class='c'/>"));
        QVERIFY(rewritten.contains("class=\"c\"") && !rewritten.contains("fill:red"));
    }

    void manyUsesOfManyCharactersAreNone_data()
    {
        QTest::addColumn<QByteArray>("part");
        QTest::newRow("of a path")
            << "<path id='a' d='M0 0" + QByteArray("L9 9").repeated(600) + "'/>";
        QTest::newRow("of a text")
            << "<text id='a'>" + QByteArray("words ").repeated(50) + "</text>";
    }

    void manyUsesOfManyCharactersAreNone()
    {
        QFETCH(QByteArray, part);
        const QByteArray drawing =
            drawingOf(part + QByteArray("<use xlink:href='#a'/>").repeated(9));
        DrawingAllowance ample{.characters = 1'000'000};
        QVERIFY(!containedDrawing(drawing, ample).isEmpty());
        DrawingAllowance few{.characters = 20'000};
        QVERIFY(!containedDrawing(drawingOf(part), few).isEmpty());
        few.characters = 20'000;
        QVERIFY(containedDrawing(drawing, few).isEmpty());
    }

    /// What each of them leads to is looked at once: that is bounded by what is written, not by the
    /// product of the two.
    void manyReferencesToManyColoursAreKept()
    {
        const QByteArray drawing =
            drawingOf(QByteArray("<linearGradient id='a'/>").repeated(20'000) + "<g x='"
                      + QByteArray("url(#a)").repeated(20'000) + "'/>");
        QVERIFY(!contained(drawing).isEmpty());
    }

    void manyRulesOfWhichFewApplyAreKept()
    {
        const QByteArray rules = numbered(".a%{fill:red;stroke:#123456;stroke-width:2}\n", 100);
        const QByteArray drawing = styled(rules, QByteArray("<g class='a7'/>").repeated(40'000));
        QVERIFY(contained(drawing).contains("stroke-width"));
    }

    void whatIsPaintedALittleIsKept_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        for (const CostlyKind &kind : costlyKinds)
            QTest::newRow(kind.name) << kind.drawing(kind.enough);
    }

    void whatIsPaintedALittleIsKept()
    {
        QFETCH(QByteArray, bytes);
        const QImage image = imageIn(bytes);
        QCOMPARE(image.size(), QSize(1920, 1080));
        QVERIFY(image.pixel(960, 540) != qRgb(0, 0, 255));
    }

    void whatIsWithinIsBounded()
    {
        const QByteArray image = imageOf(dataUrl("png", largePng(5000)));
        QCOMPARE(contained(drawingOf(image.repeated(5))).count("base64"), 2);
        QByteArray within = drawingOf({});
        for (int level = 0; level < 6; ++level)
            within = drawingOf(imageOf(dataUrl("svg+xml", within)));
        QVERIFY(contained(within).size() < 2000);
    }

private:
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

QUENARA_TEST_WITH(QGuiApplication, TestContainedDrawing)

} // namespace tst_contained_drawing

#include "tst_contained_drawing.moc"
