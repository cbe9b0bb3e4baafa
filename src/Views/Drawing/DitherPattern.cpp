#include "DitherPattern.h"

#include <algorithm>
#include <cmath>

namespace quenara {

namespace {

constexpr int patternSide = DitherPattern::side;
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
            const double x = std::min(i % patternSide, patternSide - i % patternSide);
            const double y = std::min(i / patternSide, patternSide - i / patternSide);
            m_influence.at(std::size_t(i)) =
                std::lround(unit * std::exp(-(x * x + y * y) / (2 * reach * reach)));
        }
    }

    void set(int place, bool isDot)
    {
        m_isDot.at(std::size_t(place)) = isDot;
        for (int i = 0; i < placeCount; ++i) {
            const int x = (i % patternSide - place % patternSide + patternSide) % patternSide;
            const int y = (i / patternSide - place / patternSide + patternSide) % patternSide;
            const long influence = m_influence.at(std::size_t(y) * patternSide + std::size_t(x));
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

} // namespace

const DitherPattern &DitherPattern::instance()
{
    static const DitherPattern pattern;
    return pattern;
}

DitherPattern::DitherPattern()
{
    const Dots first = evenDots();
    const auto rank = [this](int place, int value) {
        m_values.at(std::size_t(place)) = std::uint8_t(value);
    };
    Dots dots = first;
    for (int value = beginning - 1; value >= 0; --value) {
        const int place = dots.mostCrowded();
        rank(place, value);
        dots.set(place, false);
    }
    dots = first;
    for (int value = beginning; value < placeCount; ++value) {
        const int place = dots.emptiest();
        rank(place, value);
        dots.set(place, true);
    }
}

} // namespace quenara
