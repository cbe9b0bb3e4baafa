#include "GuiTestSupport.h"
#include "TextBlockCache.h"

using namespace quenara;
using namespace quenara::test;

namespace tst_text_block_cache {

namespace {

constexpr QSizeF size(640, 360);

TextElementProperties verse(int number)
{
    TextElementProperties text;
    text.text = QStringLiteral("Verse %1").arg(number);
    return text;
}

} // namespace

class TestTextBlockCache : public GuiTest
{
    Q_OBJECT

private slots:
    void aTextIsLaidOutOnceForEveryScale()
    {
        TextBlockCache cache;
        const auto block = cache.block(verse(1), size);
        for (const double scale : {1.0 / 3, 0.0926, 0.7, 2.0})
            QCOMPARE(cache.block(verse(1), size * scale / scale), block);
    }

    void whatLooksOtherwiseIsLaidOutAnew()
    {
        TextBlockCache cache;
        const auto block = cache.block(verse(1), size);
        QVERIFY(cache.block(verse(2), size) != block);
        QVERIFY(cache.block(verse(1), size - QSizeF(1, 0)) != block);
        TextElementProperties larger = verse(1);
        larger.fontSize += 2;
        QVERIFY(cache.block(larger, size) != block);
        QVERIFY(cache.block(verse(1), size, {.lineMaximum = 1}) != block);
    }

    void textsThatAreNotPaintedAnyMoreGo()
    {
        TextBlockCache cache;
        const std::weak_ptr<TextBlock> first = cache.block(verse(0), size);
        const std::weak_ptr<TextBlock> painted = cache.block(verse(1), size);
        for (int number = 2; number < 1000; ++number) {
            cache.block(verse(number), size);
            cache.block(verse(1), size);
        }
        QVERIFY(first.expired());
        QVERIFY(!painted.expired());
    }
};

QUENARA_GUI_TEST(TestTextBlockCache)

} // namespace tst_text_block_cache

#include "tst_text_block_cache.moc"
