#pragma once

#include <functional>

namespace quenara::test {

/// Runs \a work in a process of its own, a copy of this one; the status with which it ended, -1 if
/// a signal ended it.
int statusOfProcess(const std::function<int()> &work);

} // namespace quenara::test
