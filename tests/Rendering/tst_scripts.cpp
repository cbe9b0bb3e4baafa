#include "TextImages.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_scripts {

/// No GuiTest: Qt warns of scripts that it has no face for.
class TestScripts : public QObject
{
    Q_OBJECT

private slots:
    void aTextInAnyScriptIsPaintedWhetherOrNotAFaceForItIsInstalled_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("Devanagari") << QStringLiteral("\u092a\u094d\u0930\u092d\u0941");
        QTest::newRow("Gurmukhi") << QStringLiteral("\u0a35\u0a3e\u0a39");
        QTest::newRow("Tamil") << QStringLiteral("\u0ba4\u0bae\u0bbf\u0bb4\u0bcd");
        QTest::newRow("Thai") << QStringLiteral("\u0e1e\u0e23\u0e30\u0e40\u0e08\u0e49\u0e32");
        QTest::newRow("Khmer") << QStringLiteral("\u1796\u17d2\u179a\u17c7");
        QTest::newRow("Ethiopic") << QStringLiteral("\u12a5\u130d\u12da\u12a0");
        QTest::newRow("Han") << QStringLiteral("\u5e73\u5b89");
        QTest::newRow("Hangul") << QStringLiteral("\ud3c9\ud654");
        QTest::newRow("characters that mean nothing") << QStringLiteral("\ue123\U000f1234");
    }

    void aTextInAnyScriptIsPaintedWhetherOrNotAFaceForItIsInstalled()
    {
        QFETCH(QString, text);
        for (const double fontSize : {30.0, 200.0}) {
            TextElementProperties properties = plainText(text);
            properties.fontSize = fontSize;
            properties.shadow = TextShadow::soft;
            QVERIFY(!inkOf(textImage(properties, {200, 200, 1500, 600})).isEmpty());
        }
    }
};

QUENARA_GUI_TEST(TestScripts)

} // namespace tst_scripts

#include "tst_scripts.moc"
