#pragma once

#include <cstddef>
#include <functional>

namespace quenara::test {

/// Runs \a work in a process of its own, a copy of this one; the status with which it ended, -1 if
/// a signal ended it.
int statusOfProcess(const std::function<int()> &work);

/// Gives up the rights of root, if this process has them. True if it does not have them any more.
bool dropPrivileges();

/// Leaves this process no more than \a bytes of address space; true if that was possible.
bool limitMemory(std::size_t bytes);

} // namespace quenara::test
