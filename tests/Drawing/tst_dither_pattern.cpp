#include "DitherPattern.h"
#include "GuiTestSupport.h"

#include <algorithm>
#include <array>

using namespace quenara;
using namespace quenara::test;

namespace tst_dither_pattern {

namespace {

constexpr int side = DitherPattern::side;

/// How many of the numbers below \a limit lie on the square of \a size from x, y on.
int countBelow(int limit, int x, int y, int size)
{
    int count = 0;
    for (int i = 0; i < size * size; ++i)
        count += int(DitherPattern::instance().at(x + i % size, y + i / size) < limit);
    return count;
}

} // namespace

class TestDitherPattern : public GuiTest
{
    Q_OBJECT

private slots:
    void eachNumberIsThereOnce()
    {
        std::array<int, DitherPattern::count> counts{};
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x)
                ++counts.at(std::size_t(DitherPattern::instance().at(x, y)));
        }
        QVERIFY(std::all_of(counts.begin(), counts.end(), [](int count) { return count == 1; }));
    }

    void itContinuesToItself()
    {
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                QCOMPARE(DitherPattern::instance().at(x + 3 * side, y + 5 * side),
                         DitherPattern::instance().at(x, y));
            }
        }
    }

    /// On average a sixteenth of the dots lie on each square of four by four.
    void dotsLieEvenlyAtEveryDensity()
    {
        constexpr int part = 4;
        for (int limit = 16; limit < DitherPattern::count; limit += 16) {
            for (int y = 0; y < side; ++y) {
                for (int x = 0; x < side; ++x) {
                    const int few = countBelow(limit, x, y, part) - limit / 16;
                    QVERIFY2(std::abs(few) <= 3,
                             qPrintable(QStringLiteral("%1 of %2").arg(few).arg(limit)));
                }
            }
        }
    }

    void noTwoOfTheFirstDotsTouch()
    {
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                if (DitherPattern::instance().at(x, y) < 24)
                    QCOMPARE(countBelow(24, x + side - 1, y + side - 1, 3), 1);
            }
        }
    }
};

QUENARA_GUI_TEST(TestDitherPattern)

} // namespace tst_dither_pattern

#include "tst_dither_pattern.moc"
