#include "HexDigits.h"
#include "RGBAColor.h"
#include "TestMain.h"

#include <QColor>
#include <QTest>

#include <cmath>

using namespace quenara;

namespace tst_rgba_color {

namespace {

constexpr RGBAColor white = {1, 1, 1, 1};
constexpr RGBAColor black = {0, 0, 0, 1};

bool nearly(const RGBAColor &a, const RGBAColor &b)
{
    constexpr double step = 1.0 / 65535; // the platform colour keeps 16 bits a channel
    return std::abs(a.red - b.red) <= step && std::abs(a.green - b.green) <= step
        && std::abs(a.blue - b.blue) <= step && std::abs(a.alpha - b.alpha) <= step;
}

} // namespace

class TestRGBAColor : public QObject
{
    Q_OBJECT

private slots:
    void hexText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<RGBAColor>("expected");

        const auto row = [](const char *name, QStringView text, const RGBAColor &expected) {
            QTest::newRow(name) << text.toString() << expected;
        };
        row("three digits are doubled", u"#FFF", white);
        row("lower case without a mark", u"fff", white);
        row("spaces around are trimmed", u"  fff\t ", white);
        row("six digits", u"#ffffff", white);
        row("six digits give two a channel", u"#336699", {51 / 255.0, 102 / 255.0, 153 / 255.0, 1});
        row("three digits give one a channel", u"#369", {51 / 255.0, 102 / 255.0, 153 / 255.0, 1});
        row("red is the first pair", u"ff0000", {1, 0, 0, 1});
        row("green is the second pair", u"00ff00", {0, 1, 0, 1});
        row("blue is the third pair", u"0000ff", {0, 0, 1, 1});
        row("marks at both ends are trimmed", u"##(00f)!", {0, 0, 1, 1});
        row("five characters give black", u"#12345", black);
        row("four characters give black", u"ffff", black);
        row("eight characters give black", u"#ffffffff", black);
        row("the empty text gives black", u"", black);
        row("nothing but marks gives black", u"#-#", black);
        row("six characters that start with no digit", u"#zz0000", black);
        row("six characters that start with four zeros", u"#0000zz", black);
        row("six characters of which two are digits", u"ffzzzz", {0, 0, 1, 1});
        row("a mark inside counts and ends the scan", u"ff-fff", {0, 0, 1, 1});
        row("three characters of which one is a digit", u"fzz", {0, 0, 1, 1});
        row("letters beyond ASCII count and are no digits", u"\u00e9fffff", black);
    }

    void hexText()
    {
        QFETCH(QString, text);
        QTEST(RGBAColor::fromHex(text), "expected");
    }

    void theAlphaOfHexTextIsTheArgumentAsGiven()
    {
        QCOMPARE(RGBAColor::fromHex(u"#fff", 0.25).alpha, 0.25);
        QCOMPARE(RGBAColor::fromHex(u"no colour at all", 0.5), (RGBAColor{0, 0, 0, 0.5}));
    }

    void hexDigits_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<quint64>("value");
        QTest::addColumn<qsizetype>("characterCount");

        const auto row = [](const char *name, QStringView text, quint64 value,
                            qsizetype characterCount) {
            QTest::newRow(name) << text.toString() << value << characterCount;
        };
        row("nothing", u"", 0, 0);
        row("marks only", u" #.# ", 0, 0);
        row("digits of both cases", u"aBcDeF", 0xabcdef, 6);
        row("hyphens at the ends are trimmed", u"-12-", 0x12, 2);
        row("a combining mark counts", u"12\u0301", 0x12, 3);
        row("a scan ends at the first other character", u"12x4", 0x12, 4);
        row("marks inside are kept", u"#1 2#", 0x1, 3);
        row("a character outside the first plane is one", u"f\U0001d7d8f", 0xf, 3);
        row("sixteen digits fit", u"ffffffffffffffff", 0xffffffffffffffff, 16);
        row("sixteen digits just below the largest number", u"fffffffffffffffe", 0xfffffffffffffffe,
            16);
        row("seventeen digits saturate", u"10000000000000000", 0xffffffffffffffff, 17);
        row("leading zeros do not saturate", u"00000000000000000001", 1, 20);
    }

    void hexDigits()
    {
        QFETCH(QString, text);
        const HexDigits digits = HexDigits::scan(text);
        QTEST(quint64(digits.value), "value");
        QTEST(digits.characterCount, "characterCount");
    }

    void aRangeOfBitsIsCutOut()
    {
        const HexDigits digits = HexDigits::scan(u"#123456");
        QCOMPARE(digits.bits(16, 8), 0x12);
        QCOMPARE(digits.bits(8, 8), 0x34);
        QCOMPARE(digits.bits(4, 4), 0x5);
    }

    void namedColours_data()
    {
        QTest::addColumn<RGBAColor>("color");
        QTest::addColumn<QString>("hex");
        QTest::newRow("near white") << RGBAColor::nearWhite << QStringLiteral("#f4f1ea");
        QTest::newRow("amber") << RGBAColor::amber << QStringLiteral("#e0a134");
        QTest::newRow("warm amber") << RGBAColor::warmAmber << QStringLiteral("#c9872a");
        QTest::newRow("dark canvas") << RGBAColor::darkCanvas << QStringLiteral("#090b10");
        QTest::newRow("deeper canvas") << RGBAColor::deeperCanvas << QStringLiteral("#05070b");
        QTest::newRow("charcoal") << RGBAColor::charcoal << QStringLiteral("#161b22");
    }

    void namedColours()
    {
        QFETCH(RGBAColor, color);
        QFETCH(QString, hex);
        QCOMPARE(color, RGBAColor::fromHex(hex));
    }

    void aPlatformColourGivesItsComponentsInSRGB_data()
    {
        QTest::addColumn<QColor>("color");
        QTest::addColumn<RGBAColor>("expected");
        QTest::newRow("red, green and blue")
            << QColor(51, 102, 153, 204) << RGBAColor{0.2, 0.4, 0.6, 0.8};
        QTest::newRow("hue, saturation and value")
            << QColor::fromHsvF(1.0F / 3, 1, 1, 0.5) << RGBAColor{0, 1, 0, 0.5};
        QTest::newRow("printing colours") << QColor::fromCmykF(0, 1, 1, 0) << RGBAColor{1, 0, 0, 1};
        QTest::newRow("no colour at all gives white") << QColor() << white;
    }

    void aPlatformColourGivesItsComponentsInSRGB()
    {
        QFETCH(QColor, color);
        QFETCH(RGBAColor, expected);
        QVERIFY(nearly(RGBAColor::fromColor(color), expected));
    }

    void aPlatformColourIsExactToItsSixteenBits_data()
    {
        QTest::addColumn<QColor>("color");
        QTest::addColumn<RGBAColor>("expected");
        QTest::newRow("fifths") << QColor(0x33, 0x66, 0x99, 0xcc) << RGBAColor{0.2, 0.4, 0.6, 0.8};
        QTest::newRow("a thing between two of the eight-bit ones")
            << QColor(QColor::fromRgba64(1, 32768, 65534, 65535))
            << RGBAColor{1 / 65535.0, 32768 / 65535.0, 65534 / 65535.0, 1};
        QTest::newRow("a hue") << QColor(0x33, 0x66, 0x99).toHsv() << RGBAColor{0.2, 0.4, 0.6, 1};
    }

    void aPlatformColourIsExactToItsSixteenBits()
    {
        QFETCH(QColor, color);
        QTEST(RGBAColor::fromColor(color), "expected");
    }

    void aColourComesBackFromThePlatformColourItGave()
    {
        for (const RGBAColor &color : {RGBAColor::amber, RGBAColor{0.1, 0.23, 0.987, 0.55}, white,
                                       black, RGBAColor{0, 0, 0, 0}}) {
            QVERIFY(nearly(RGBAColor::fromColor(color.toColor()), color));
        }
    }

    void channelsOutsideZeroToOneAreClampedForThePlatform()
    {
        QCOMPARE((RGBAColor{-1, 2, 0.5, 7}).toColor(), QColor::fromRgbF(0, 1, 0.5, 1));
    }
};

QUENARA_TEST(TestRGBAColor)

} // namespace tst_rgba_color

#include "tst_rgba_color.moc"
