#pragma once

#include "Picker.h"
#include "RawEnum.h"

namespace quenara {

/// A picker whose choices are the raw values of \a E, shown by title where the cases have one.
template<RawEnum E>
[[nodiscard]] Picker *makeEnumPicker(const QString &name)
{
    auto *picker = new Picker(name);
    for (const E value : allCases<E>())
        picker->addItem(title(value).isEmpty() ? rawValue(value) : title(value), rawValue(value));
    return picker;
}

} // namespace quenara
