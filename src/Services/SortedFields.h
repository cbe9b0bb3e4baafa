#pragma once

#include "Record.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace quenara::json {

/// The indexes of the fields of \a T in the order of their names.
template<Record T>
inline constexpr auto sortedFields = [] {
    std::array<std::string_view, fieldCount<T>> names;
    std::size_t count = 0;
    forEachField<T>([&](const auto &f) { names[count++] = f.name; });
    std::array<std::size_t, fieldCount<T>> order{};
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::sort(order.begin(), order.end(),
              [&names](std::size_t a, std::size_t b) { return names[a] < names[b]; });
    return order;
}();

} // namespace quenara::json
