#include "Fonts.h"
#include "GuiTestSupport.h"
#include "ShownText.h"

#include <array>

using namespace quenara;
using namespace quenara::test;

namespace tst_shown_text {

namespace {

TextElementProperties stored(const QString &text, bool uppercase)
{
    TextElementProperties properties;
    properties.text = text;
    properties.uppercase = uppercase;
    return properties;
}

/// The shown offset of every stored one, the end included.
QList<int> shownOffsets(const ShownText &shown, const QString &text)
{
    QList<int> offsets;
    for (qsizetype i = 0; i <= text.size(); ++i)
        offsets.append(int(shown.offsets.shown(i)));
    return offsets;
}

} // namespace

class TestShownText : public GuiTest
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(!emojiFontFamily().isEmpty(), "scripts/setup test installs a face with emoji");
    }

    void aTextIsShownWithItsOffsets_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QList<int>>("offsets");
        QTest::addColumn<bool>("uppercase");
        const auto row = [](const char *name, QStringView text, QStringView shown,
                            const QList<int> &offsets, bool uppercase = false) {
            QTest::newRow(name) << text.toString() << shown.toString() << offsets << uppercase;
        };
        row("as it is", u"abc", u"abc", {0, 1, 2, 3});
        row("in capitals", u"abc", u"ABC", {0, 1, 2, 3}, true);
        row("a capital of two letters", u"aßb", u"ASSB", {0, 1, 3, 4}, true);
        row("a capital beyond the first plane", u"\U00010428b", u"\U00010400B", {0, 2, 2, 3}, true);
        row("lines", u"a\nb", u"a\u2028b", {0, 1, 2, 3});
        row("every kind of break", u"a\vb\fc\rd\u0085e\u2029f",
            u"a\u2028b\u2028c\u2028d\u2028e\u2028f", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
        row("a break of two characters", u"a\r\nb", u"a\u2028b", {0, 1, 1, 2, 3});
        row("spacing at the end of a line", u"a \t\nb c", u"a\u2028b c", {0, 1, 1, 1, 2, 3, 4, 5});
        row("spacing at the end of all", u"ab  ", u"ab", {0, 1, 2, 2, 2});
        row("a selector inside an emoji", u"\u2764\uFE0Fx", u"\u2764x", {0, 1, 1, 2});
        row("a selector that is not inside an emoji", u"A\uFE0Fx", u"A\uFE0Fx", {0, 1, 2, 3});
        constexpr std::array<char16_t, 3> half{u'a', 0xd83d, u'b'};
        row("half of a pair", QStringView(half.data(), half.size()), u"a\uFFFDb", {0, 1, 2, 3});
        row("nothing", u"", u"", {0});
    }

    void aTextIsShownWithItsOffsets()
    {
        QFETCH(QString, text);
        QFETCH(bool, uppercase);
        const ShownText shown = shownText(stored(text, uppercase));
        QTEST(shown.text, "shown");
        QTEST(shownOffsets(shown, text), "offsets");
        QCOMPARE(shown.offsets.stored(0), 0);
        QCOMPARE(shown.offsets.stored(shown.text.size()), text.size());
    }

    void formatsCoverEachRunOfEmoji()
    {
        const ShownText shown =
            shownText(stored(QStringLiteral("a\u2764\uFE0F\U0001F600 b\u2614c"), false));
        QCOMPARE(shown.emoji.size(), 2);
        QCOMPARE(shown.emoji.at(0).start, 1);
        QCOMPARE(shown.emoji.at(0).length, 3);
        QCOMPARE(shown.emoji.at(1).start, 6);
        QCOMPARE(shown.emoji.at(1).length, 1);
    }

    void whatIsTruncatedEndsInAnEllipsis_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("length");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QList<int>>("offsets");
        const auto row = [](const char *name, const QString &text, int length, const QString &shown,
                            const QList<int> &offsets) {
            QTest::newRow(name) << text << length << shown << offsets;
        };
        const QString end = QStringLiteral("\u2026");
        row("inside a word", QStringLiteral("abcdef"), 3, QStringLiteral("abc") + end,
            {0, 1, 2, 3, 4, 4, 4});
        row("before a space", QStringLiteral("abc ef"), 3, QStringLiteral("abc") + end,
            {0, 1, 2, 3, 3, 4, 4});
        row("behind everything", QStringLiteral("abc"), 3, QStringLiteral("abc") + end,
            {0, 1, 2, 3});
    }

    void whatIsTruncatedEndsInAnEllipsis()
    {
        QFETCH(QString, text);
        QFETCH(int, length);
        const ShownText shown = truncated(shownText(stored(text, false)), length);
        QTEST(shown.text, "shown");
        QTEST(shownOffsets(shown, text), "offsets");
        QCOMPARE(shown.offsets.stored(shown.text.size()), text.size());
    }

    void whatIsTruncatedKeepsTheEmojiThatAreLeft()
    {
        const QString faces = QStringLiteral("\U0001F600\U0001F600\U0001F600");
        const ShownText shown =
            truncated(shownText(stored(faces + QStringLiteral("a") + faces, false)), 4);
        QCOMPARE(shown.emoji.size(), 1);
        QCOMPARE(shown.emoji.at(0).start, 0);
        QCOMPARE(shown.emoji.at(0).length, 4);
    }
};

QUENARA_GUI_TEST(TestShownText)

} // namespace tst_shown_text

#include "tst_shown_text.moc"
