#include "DitherPattern.h"
#include "GuiTestSupport.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace quenara;
using namespace quenara::test;

namespace tst_dither_pattern {

namespace {

constexpr int side = DitherPattern::side;
constexpr int placeCount = DitherPattern::count;
constexpr int beginning = placeCount / 10; ///< dots that are laid out before all others

/// Dots on the square and how crowded each of its places is. Whole numbers, so that the same
/// pattern is found on every machine.
class Dots
{
public:
    Dots()
    {
        constexpr double reach = 1.5; // pixels
        constexpr double unit = 1 << 20;
        for (int i = 0; i < placeCount; ++i) {
            const double x = std::min(i % side, side - i % side);
            const double y = std::min(i / side, side - i / side);
            m_influence.at(std::size_t(i)) =
                std::lround(unit * std::exp(-(x * x + y * y) / (2 * reach * reach)));
        }
    }

    void set(int place, bool isDot)
    {
        m_isDot.at(std::size_t(place)) = isDot;
        for (int i = 0; i < placeCount; ++i) {
            const int x = (i % side - place % side + side) % side;
            const int y = (i / side - place / side + side) % side;
            const long influence = m_influence.at(std::size_t(y) * side + std::size_t(x));
            m_crowding.at(std::size_t(i)) += isDot ? influence : -influence;
        }
    }

    bool isDot(int place) const { return m_isDot.at(std::size_t(place)); }

    /// The dot with the most others around it.
    int mostCrowded() const { return extreme(true); }
    /// The place without a dot that has the fewest around it.
    int emptiest() const { return extreme(false); }

private:
    int extreme(bool ofDots) const
    {
        int found = -1;
        for (int i = 0; i < placeCount; ++i) {
            if (isDot(i) != ofDots)
                continue;
            const bool isFurther = found < 0
                || (ofDots ? crowding(i) > crowding(found) : crowding(i) < crowding(found));
            found = isFurther ? i : found;
        }
        return found;
    }

    long crowding(int place) const { return m_crowding.at(std::size_t(place)); }

    std::array<long, placeCount> m_influence{}; ///< of a dot at the first place on each
    std::array<long, placeCount> m_crowding{};
    std::array<bool, placeCount> m_isDot{};
};

/// A tenth of the square in dots as far from one another as they come to be when the most crowded
/// one moves to the emptiest place, again and again.
Dots evenDots()
{
    Dots dots;
    unsigned random = 1; // of the generator x -> 1664525 x + 1013904223, by Knuth and Lewis
    for (int set = 0; set < beginning;) {
        random = 1'664'525U * random + 1'013'904'223U;
        const int place = int(random >> 24U);
        if (!dots.isDot(place)) {
            dots.set(place, true);
            ++set;
        }
    }
    for (int from = -1, to = -2; from != to;) {
        from = dots.mostCrowded();
        dots.set(from, false);
        to = dots.emptiest();
        dots.set(to, true);
    }
    return dots;
}

/// The numbers of all places: how many dots lie there before one comes to it, from the most even
/// dots on where the square is emptiest, and back from them where it is most crowded.
std::array<std::uint8_t, DitherPattern::count> ranks()
{
    std::array<std::uint8_t, DitherPattern::count> found{};
    const Dots first = evenDots();
    Dots dots = first;
    for (int value = beginning - 1; value >= 0; --value) {
        const int place = dots.mostCrowded();
        found.at(std::size_t(place)) = std::uint8_t(value);
        dots.set(place, false);
    }
    dots = first;
    for (int value = beginning; value < placeCount; ++value) {
        const int place = dots.emptiest();
        found.at(std::size_t(place)) = std::uint8_t(value);
        dots.set(place, true);
    }
    return found;
}

/// How many of the numbers below \a limit lie on the square of \a size from x, y on.
int countBelow(int limit, int x, int y, int size)
{
    int count = 0;
    for (int i = 0; i < size * size; ++i)
        count += int(DitherPattern::at(x + i % size, y + i / size) < limit);
    return count;
}

} // namespace

class TestDitherPattern : public GuiTest
{
    Q_OBJECT

private slots:
    void itIsWhatVoidAndClusterFinds() { QCOMPARE(DitherPattern::values, ranks()); }

    void eachNumberIsThereOnce()
    {
        std::array<int, DitherPattern::count> counts{};
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x)
                ++counts.at(std::size_t(DitherPattern::at(x, y)));
        }
        QVERIFY(std::all_of(counts.begin(), counts.end(), [](int count) { return count == 1; }));
    }

    void itContinuesToItself()
    {
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                QCOMPARE(DitherPattern::at(x + 3 * side, y + 5 * side), DitherPattern::at(x, y));
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
                if (DitherPattern::at(x, y) < 24)
                    QCOMPARE(countBelow(24, x + side - 1, y + side - 1, 3), 1);
            }
        }
    }
};

QUENARA_GUI_TEST(TestDitherPattern)

} // namespace tst_dither_pattern

#include "tst_dither_pattern.moc"
