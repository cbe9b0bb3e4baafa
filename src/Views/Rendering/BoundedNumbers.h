#pragma once

#include "SlideDesignModels.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace quenara {

/// The largest number of a design as it is painted. A document may hold larger ones, up to those
/// with which arithmetic ends; no slide shows the difference.
inline constexpr double largestPaintedNumber = 1e9;

/// \a value with all of its numbers between the largest painted one and its negative.
template<class T>
[[nodiscard]] T withBoundedNumbers(T value)
{
    if constexpr (std::is_same_v<T, double>) {
        value = std::clamp(value, -largestPaintedNumber, largestPaintedNumber);
    } else if constexpr (isOptional<T>) {
        if (value)
            *value = withBoundedNumbers(std::move(*value));
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
