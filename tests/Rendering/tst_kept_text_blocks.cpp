#include "GuiTestSupport.h"
#include "KeptTextBlocks.h"

using namespace quenara;
using namespace quenara::test;

namespace {

constexpr QSizeF size(640, 360);

TextElementProperties verse(int number)
{
    TextElementProperties text;
    text.text = QStringLiteral("Verse %1").arg(number);
    return text;
}

} // namespace

class TestKeptTextBlocks : public GuiTest
{
    Q_OBJECT

private slots:
    void aTextIsLaidOutOnceForEveryScale()
    {
        const auto block = keptTextBlock(verse(1), size);
        for (const double scale : {1.0 / 3, 0.0926, 0.7, 2.0})
            QCOMPARE(keptTextBlock(verse(1), size * scale / scale), block);
    }

    void whatLooksOtherwiseIsLaidOutAnew()
    {
        const auto block = keptTextBlock(verse(1), size);
        QVERIFY(keptTextBlock(verse(2), size) != block);
        QVERIFY(keptTextBlock(verse(1), size - QSizeF(1, 0)) != block);
        TextElementProperties larger = verse(1);
        larger.fontSize += 2;
        QVERIFY(keptTextBlock(larger, size) != block);
    }

    void textsThatAreNotPaintedAnyMoreGo()
    {
        const std::weak_ptr<TextBlock> first = keptTextBlock(verse(0), size);
        const std::weak_ptr<TextBlock> painted = keptTextBlock(verse(1), size);
        for (int number = 2; number < 1000; ++number) {
            keptTextBlock(verse(number), size);
            keptTextBlock(verse(1), size);
        }
        QVERIFY(first.expired());
        QVERIFY(!painted.expired());
    }
};

QUENARA_GUI_TEST_MAIN(TestKeptTextBlocks)
#include "tst_kept_text_blocks.moc"
