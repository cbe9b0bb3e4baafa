#pragma once

#include "SlideDesignModels.h"

#include <algorithm>
#include <cmath>
#include <type_traits>
#include <utility>

namespace quenara {

/// The largest number of a design as it is painted. A document may hold larger ones, up to those
/// with which arithmetic ends; no slide shows the difference.
inline constexpr double largestPaintedNumber = 1e9;

/// Whether all numbers of \a value lie between the largest painted one and its negative.
template<class T>
[[nodiscard]] bool hasBoundedNumbers(const T &value)
{
    if constexpr (std::is_same_v<T, double>) {
        return std::abs(value) <= largestPaintedNumber;
    } else if constexpr (isOptional<T>) {
        return !value || hasBoundedNumbers(*value);
    } else if constexpr (Record<T>) {
        bool isBounded = true;
        forEachField<T>(
            [&](const auto &f) { isBounded = isBounded && hasBoundedNumbers(value.*f.member); });
        return isBounded;
    } else {
        return true;
    }
}

/// \a value with the nearest of those numbers in the place of each that is none. What it shares
/// with the original stays shared where it can.
template<class T>
[[nodiscard]] T withBoundedNumbers(T value)
{
    if (hasBoundedNumbers(value))
        return value;
    if constexpr (std::is_same_v<T, double>) {
        return std::clamp(value, -largestPaintedNumber, largestPaintedNumber);
    } else if constexpr (isOptional<T>) {
        *value = withBoundedNumbers(*std::as_const(value));
    } else if constexpr (Record<T>) {
        forEachField<T>([&value](const auto &f) {
            value.*f.member = withBoundedNumbers(std::move(value.*f.member));
        });
    }
    return value;
}

/// The size of a canvas as it is painted: neither side larger than any painted number, nor so small
/// that a number of canvas units becomes larger than that in pixels. Empty if the canvas is.
[[nodiscard]] inline CanvasSize paintedSize(const CanvasSize &canvas)
{
    const auto side = [](double length) {
        constexpr double smallest = 1e-3;
        return length > 0 ? std::clamp(length, smallest, largestPaintedNumber) : 0;
    };
    return {side(canvas.width), side(canvas.height)};
}

} // namespace quenara
