#include "ElidedText.h"
#include "Fonts.h"
#include "GuiTestSupport.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_elided_text {

namespace {

constexpr double width = 150;

QString sentence(int count)
{
    return QStringLiteral("Great is the morning, bright with mercy. ").repeated(count).trimmed();
}

QFontMetricsF metrics()
{
    return QFontMetricsF(systemFont(12, QFont::Medium));
}

QString shown(const QString &text, Qt::TextElideMode mode = Qt::ElideRight)
{
    return elidedText(text, metrics(), mode, width);
}

} // namespace

class TestElidedText : public GuiTest
{
    Q_OBJECT

private slots:
    void aShortTextIsShownWholeInOneLine()
    {
        QCOMPARE(shown(QStringLiteral("  Verse\n 1 ")), QStringLiteral("Verse 1"));
        QCOMPARE(shown({}), QString());
    }

    void aLongTextLooksTheSameHoweverLongItIs_data()
    {
        QTest::addColumn<Qt::TextElideMode>("mode");
        QTest::newRow("its beginning") << Qt::ElideRight;
        QTest::newRow("its end") << Qt::ElideLeft;
        QTest::newRow("both") << Qt::ElideMiddle;
    }

    void aLongTextLooksTheSameHoweverLongItIs()
    {
        QFETCH(Qt::TextElideMode, mode);
        const QString expected = metrics().elidedText(sentence(3), mode, width);
        QVERIFY(expected.contains(QChar(0x2026)));
        for (const int count : {3, 8, 9, 50, 20'000})
            QCOMPARE(shown(sentence(count), mode), expected);
    }

    void whereThereIsNoRoomThereIsNoText()
    {
        for (const double none : {0.0, -20.0}) {
            QCOMPARE(elidedText(sentence(50), metrics(), Qt::ElideRight, none),
                     metrics().elidedText(sentence(3), Qt::ElideRight, none));
        }
    }
};

QUENARA_GUI_TEST(TestElidedText)

} // namespace tst_elided_text

#include "tst_elided_text.moc"
