#pragma once

#include <array>
#include <cstdint>

namespace quenara {

/// Each number from 0 to 255 once, on a square that continues to itself on all sides. Those below
/// any limit lie as evenly and as irregularly as can be, so that what is rounded up or down by them
/// shows neither dots nor lines. Found by the void-and-cluster method (R. Ulichney, 1993).
class DitherPattern
{
public:
    static constexpr int side = 16;
    static constexpr int count = side * side;
    /// The same one for everybody, made when it is first asked for.
    [[nodiscard]] static const DitherPattern &instance();

    DitherPattern();

    /// The number for a pixel of an area whose top left pixel is at 0, 0.
    [[nodiscard]] int at(int x, int y) const
    {
        return m_values.at(std::size_t(y % side) * side + std::size_t(x % side));
    }

private:
    std::array<std::uint8_t, count> m_values{};
};

} // namespace quenara
