#include "Fonts.h"
#include "GoldenSlides.h"
#include "GuiTestSupport.h"
#include "RenderCaches.h"
#include "ScriptFonts.h"
#include "TextImages.h"

#include <QFontInfo>

using namespace quenara;
using namespace quenara::test;

namespace tst_script_faces {

namespace {

/// The bands of rows that hold any light, from the top down.
int inkBands(const QImage &image)
{
    int bands = 0;
    bool wasLit = false;
    for (int y = 0; y < image.height(); ++y) {
        bool isLit = false;
        for (int x = 0; x < image.width() && !isLit; ++x)
            isLit = qGreen(image.pixel(x, y)) > 40;
        bands += isLit && !wasLit ? 1 : 0;
        wasLit = isLit;
    }
    return bands;
}

} // namespace

class TestScriptFaces : public GuiTest
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        for (const char *family : {"Noto Sans Arabic", "Noto Sans CJK SC", "Noto Color Emoji"}) {
            QVERIFY2(isFamilyInstalled(QLatin1String(family)), "scripts/setup test installs it");
        }
    }

    void aVerseOfEachScriptIsWholeInEachTemplate_data()
    {
        QTest::addColumn<Slide>("slide");
        for (const GoldenSlide &slide : scriptSlides())
            QTest::newRow(qPrintable(slide.name)) << *slide.view.slide;
    }

    void aVerseOfEachScriptIsWholeInEachTemplate()
    {
        QFETCH(Slide, slide);
        int texts = 0;
        for (const SlideElement &layer : slide.design.elements) {
            if (!layer.text)
                continue;
            const double padding = 2 * layer.text->padding;
            TextBlock block(*layer.text,
                            {layer.frame.width - padding, layer.frame.height - padding});
            QVERIFY(!block.lacksLetters());
            // Without what lies around the letters, lines that touch are one band.
            TextElementProperties plain = *layer.text;
            plain.shadow.reset();
            plain.textColor = {1, 1, 1, 1};
            QVERIFY(inkBands(textImage(plain, layer.frame)) >= block.lines().size());
            RenderCaches caches;
            const QRectF ink = block.letterBounds(caches).translated(layer.frame.x + padding / 2,
                                                                     layer.frame.y + padding / 2);
            QVERIFY(QRectF(QPointF(), canvas).contains(ink));
            ++texts;
        }
        QVERIFY(texts > 0);
    }

    void chineseCharactersHaveTheFormsOfTheirText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("family");
        QTest::newRow("alone") << QStringLiteral("直接") << QStringLiteral("Noto Sans CJK SC");
        QTest::newRow("beside kana")
            << QStringLiteral("直接に") << QStringLiteral("Noto Sans CJK JP");
        QTest::newRow("beside hangul")
            << QStringLiteral("直接 노래") << QStringLiteral("Noto Sans CJK KR");
    }

    void chineseCharactersHaveTheFormsOfTheirText()
    {
        QFETCH(QString, text);
        QTEST(scriptFamily(QChar::Script_Han, hanForms(text)), "family");
        const TextBlock block(plainText(text), {1000, 400});
        for (const QGlyphRun &run : block.layout().glyphRuns(0, 2))
            QTEST(run.rawFont().familyName(), "family");
    }

    void lettersStandInTheirScriptsFaceWithAndWithoutMarks_data()
    {
        QTest::addColumn<QString>("word");
        QTest::newRow("with marks") << QStringLiteral("הַבֹּקֶר");
        QTest::newRow("without") << QStringLiteral("בוקר");
    }

    void lettersStandInTheirScriptsFaceWithAndWithoutMarks()
    {
        QFETCH(QString, word);
        const TextBlock block(plainText(QStringLiteral("Morning ") + word), {1000, 400});
        for (const QGlyphRun &run : block.layout().glyphRuns(8, int(word.size())))
            QCOMPARE(run.rawFont().familyName(), QStringLiteral("Noto Sans Hebrew"));
        for (const QGlyphRun &run : block.layout().glyphRuns(0, 7))
            QCOMPARE(run.rawFont().familyName(), slideFontFamily());
    }

    void signsThatAreNotSeenLeaveTheLinesAsHighAsTheyAre()
    {
        const TextBlock plain(plainText(QStringLiteral("Morning\nlight")), {1000, 400});
        const TextBlock marked(
            plainText(QStringLiteral("\ufeffMor\u00adning\n\u202dli\u200bg\u2060ht\u202c")),
            {1000, 400});
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(marked.layout().lineAt(i).height(), plain.layout().lineAt(i).height());
            QCOMPARE(marked.layout().lineAt(i).naturalTextWidth(),
                     plain.layout().lineAt(i).naturalTextWidth());
        }
    }

    void aFamilyThatADocumentNamesComesFirst()
    {
        TextElementProperties text = plainText(QStringLiteral("בוקר הַבֹּקֶר"));
        text.fontFamily = QStringLiteral("Noto Serif Hebrew");
        const TextBlock block(text, {1000, 400});
        for (const QGlyphRun &run : block.layout().glyphRuns())
            QCOMPARE(run.rawFont().familyName(), text.fontFamily);
    }

    void aLetterOfNoFaceIsToldOf_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("expected");
        QTest::newRow("a letter for private use") << QStringLiteral("Great \U0010fffd") << true;
        QTest::newRow("a character that nobody has assigned yet")
            << QStringLiteral("\u0378") << true;
        QTest::newRow("signs that are not seen")
            << QStringLiteral("a\u200bb\u200dc\u200ed\u00ade\u2060f\tg\u00a0h\u202ei") << false;
        QTest::newRow("several lines") << QStringLiteral("one\ntwo\r\n\nthree\u2028four") << false;
        QTest::newRow("a joined emoji") << QStringLiteral(
            "\U0001F468\u200d\U0001F469\u200d\U0001F467 \u2764\ufe0f 1\ufe0f\u20e3")
                                        << false;
        QTest::newRow("nothing") << QString() << false;
    }

    void aLetterOfNoFaceIsToldOf()
    {
        QFETCH(QString, text);
        TextBlock block(plainText(text), {1600, 800});
        QTEST(block.lacksLetters(), "expected");
    }
};

QUENARA_GUI_TEST(TestScriptFaces)

} // namespace tst_script_faces

#include "tst_script_faces.moc"
