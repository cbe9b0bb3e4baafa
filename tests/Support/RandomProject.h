#pragma once

#include "ProjectModels.h"

#include <cstdint>
#include <functional>

namespace quenara::test {

/// A project with at least one item and otherwise anything in any field that the format can hold:
/// texts of every script, controls and halves of surrogate pairs; reals and integers at their
/// limits; dates of whole seconds in the years 1 to 9999. The same \a seed gives the same project.
ZelvoProject randomProject(unsigned seed);

/// A design with anything in any field, likewise, made from the numbers that \a next gives.
SlideDesign randomDesign(const std::function<std::uint64_t()> &next);

/// \a project as a file gives it back: UTF-8 has no half of a surrogate pair, what stands for one
/// takes its place.
ZelvoProject withoutHalfPairs(ZelvoProject project);

} // namespace quenara::test
