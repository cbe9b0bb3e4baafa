#include "Fonts.h"
#include "SlideFonts.h"
#include "TextBlock.h"
#include "TextImages.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QRawFont>

using namespace quenara;
using namespace quenara::test;

namespace tst_slide_text {

class TestSlideText : public GuiTest
{
    Q_OBJECT

private slots:
    void allFiveWeightsOfBothBundledFamiliesAreFacesOfTheirOwn()
    {
        QSet<QByteArray> faces;
        for (const QString &family : {slideFontFamily(), systemFontFamily()}) {
            for (const TextFontWeight weight : allCases<TextFontWeight>()) {
                const QRawFont raw = QRawFont::fromFont(slideFont(family, weight, 64));
                QCOMPARE(raw.familyName(), family);
                faces.insert(raw.fontTable("CFF ") + raw.fontTable("glyf"));
            }
        }
        QCOMPARE(faces.size(), 10);
    }

    void familiesThatAreNotInstalledHaveTheirStandIns_data()
    {
        QTest::addColumn<QString>("family");
        QTest::addColumn<QString>("drawnWith");
        const auto row = [](const char *family, const QString &drawnWith) {
            const QString name = QString::fromLatin1(family);
            QTest::newRow(family) << name
                                  << (QFontDatabase::families().contains(name) ? name : drawnWith);
        };
        const auto aliased = [](const QString &alias) {
            return QRawFont::fromFont(QFont(alias)).familyName();
        };
        row("Avenir Next", slideFontFamily());
        row("Helvetica Neue", systemFontFamily());
        row("SF Pro Display", systemFontFamily());
        row("Georgia", aliased(QStringLiteral("serif")));
        row("Menlo", aliased(QStringLiteral("monospace")));
        row("No Such Family", systemFontFamily());
        // Whether or not another one is installed.
        QTest::newRow("Lato") << QStringLiteral("Lato") << slideFontFamily();
        QTest::newRow("inter") << QStringLiteral("inter") << systemFontFamily();
        QTest::newRow("none") << QString() << systemFontFamily();
    }

    void familiesThatAreNotInstalledHaveTheirStandIns()
    {
        QFETCH(QString, family);
        QFETCH(QString, drawnWith);
        const QFont font = slideFont(family, TextFontWeight::regular, 64);
        QCOMPARE(QRawFont::fromFont(font).familyName(), drawnWith);
    }

    void textIsCentredInItsBoxOrHugsAnEdge_data()
    {
        QTest::addColumn<TextAlignmentValue>("alignment");
        for (const TextAlignmentValue alignment : allCases<TextAlignmentValue>())
            QTest::newRow(qPrintable(rawValue(alignment))) << alignment;
    }

    void textIsCentredInItsBoxOrHugsAnEdge()
    {
        QFETCH(TextAlignmentValue, alignment);
        TextElementProperties text = plainText(QStringLiteral("HHH"));
        text.alignment = alignment;
        text.padding = 40;
        const QRect ink = inkOf(textImage(text, {200, 300, 1000, 400}));
        constexpr int tolerance = 12; // side bearings
        if (alignment == TextAlignmentValue::left) {
            QVERIFY(std::abs(ink.left() - 240) <= tolerance);
        } else if (alignment == TextAlignmentValue::center) {
            QVERIFY(std::abs(ink.center().x() - 700) <= tolerance);
        } else {
            QVERIFY(std::abs(ink.right() - 1160) <= tolerance);
        }
        QVERIFY(std::abs(ink.center().y() - 500) <= tolerance);
    }

    void linesStandApartByTheirHeightAndTheExtraSpacing()
    {
        const auto pitch = [](double lineHeight) {
            TextElementProperties text = plainText(QStringLiteral("H"));
            text.lineHeight = lineHeight;
            const TextBlock one(text, {1000, 800});
            text.text = QStringLiteral("H\nH");
            const TextBlock two(text, {1000, 800});
            return two.bounds().height() - one.bounds().height();
        };
        QVERIFY(std::abs(pitch(1.5) - pitch(1) - 39) < 0.5);
        QCOMPARE(pitch(0.8), pitch(1));
    }

    void upperCaseIsShownInCapitalsWhileTheModelKeepsItsCase()
    {
        TextElementProperties text = plainText(QStringLiteral("Straße"));
        text.uppercase = true;
        QCOMPARE(TextBlock(text, {1500, 400}).lines(), QStringList{QStringLiteral("STRASSE")});
        QCOMPARE(text.text, QStringLiteral("Straße"));
    }

    void mandatoryBreaksAndBlankLinesAreKept()
    {
        const TextBlock block(plainText(QStringLiteral("one\r\n\ntwo\rthree")), {1500, 900});
        QCOMPARE(block.lines(),
                 (QStringList{QStringLiteral("one"), QString(), QStringLiteral("two"),
                              QStringLiteral("three")}));
    }

    void aShadowDarkensWhatLiesBelowTheText()
    {
        TextElementProperties text = plainText(QStringLiteral("HHHH"));
        text.shadow = TextShadow{{1, 0, 0, 1}, 0, 0, 60};
        const QImage image = textImage(text, {200, 300, 1000, 400});
        text.shadow.reset();
        const QRect ink = inkOf(textImage(text, {200, 300, 1000, 400}));
        const QPoint insideStem(ink.left() + 4, ink.bottom() - 4);
        QCOMPARE(image.pixel(insideStem), qRgb(255, 255, 255));
        QCOMPARE(image.pixel(insideStem + QPoint(0, 60)), qRgb(255, 0, 0));
    }

    void aBackgroundFillCoversTheWholeBoxWithRoundCorners()
    {
        TextElementProperties text = plainText(QString());
        text.backgroundFill = RGBAColor{0, 0, 1, 1};
        const QImage image = textImage(text, {200, 300, 1000, 400});
        QCOMPARE(image.pixel(700, 301), qRgb(0, 0, 255));
        QCOMPARE(image.pixel(201, 500), qRgb(0, 0, 255));
        QCOMPARE(image.pixel(200, 300), qRgb(0, 0, 0));
    }
};

QUENARA_GUI_TEST(TestSlideText)

} // namespace tst_slide_text

#include "tst_slide_text.moc"
