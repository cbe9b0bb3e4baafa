#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace quenara {

/// Each number from 0 to 255 once, on a square that continues to itself on all sides. Those below
/// any limit lie as evenly and as irregularly as can be, so that what is rounded up or down by them
/// shows neither dots nor lines. Found by the void-and-cluster method (R. Ulichney, 1993).
struct DitherPattern
{
    static constexpr int side = 16;
    static constexpr int count = side * side;

    static const std::array<std::uint8_t, count> values; ///< row by row

    /// The number for a pixel of an area whose top left pixel is at 0, 0.
    [[nodiscard]] static int at(int x, int y)
    {
        return values.at(std::size_t(y % side) * side + std::size_t(x % side));
    }
};

inline constexpr std::array<std::uint8_t, DitherPattern::count> DitherPattern::values{
    // clang-format off
    147, 204, 133, 249, 8, 166, 27, 183, 83, 251, 195, 170, 23, 211, 104, 15,
    229, 85, 172, 64, 197, 139, 241, 44, 158, 106, 18, 234, 91, 156, 254, 68,
    179, 4, 38, 236, 109, 54, 90, 129, 216, 65, 144, 122, 59, 187, 31, 127,
    99, 218, 124, 153, 24, 181, 226, 1, 199, 35, 176, 219, 5, 138, 205, 47,
    162, 71, 191, 92, 208, 67, 164, 111, 81, 248, 96, 46, 242, 80, 108, 233,
    25, 245, 52, 10, 140, 252, 40, 145, 188, 16, 155, 114, 184, 165, 12, 146,
    86, 134, 171, 225, 113, 78, 19, 235, 58, 125, 207, 72, 21, 215, 60, 198,
    43, 214, 98, 33, 182, 200, 130, 210, 88, 168, 36, 239, 132, 94, 250, 121,
    160, 2, 240, 62, 157, 48, 101, 174, 6, 227, 107, 194, 51, 152, 28, 185,
    206, 79, 148, 126, 230, 13, 244, 70, 150, 55, 141, 11, 175, 221, 73, 105,
    56, 116, 196, 22, 93, 203, 118, 32, 190, 255, 76, 213, 89, 120, 14, 231,
    30, 253, 41, 177, 74, 167, 142, 220, 100, 123, 20, 163, 42, 247, 143, 173,
    131, 154, 209, 110, 228, 53, 3, 84, 45, 178, 232, 135, 201, 61, 189, 87,
    7, 97, 63, 17, 128, 246, 193, 161, 238, 26, 69, 95, 0, 112, 34, 217,
    243, 169, 224, 186, 151, 37, 66, 102, 137, 202, 149, 223, 180, 237, 159, 75,
    115, 29, 49, 103, 82, 212, 119, 222, 9, 57, 117, 39, 77, 136, 50, 192,
    // clang-format on
};

} // namespace quenara
