#pragma once

#include <QString>

#include <source_location>

namespace quenara::test {

/// Where a test calls a helper: helpers that can fail take it as their last argument.
using Caller = std::source_location;

/// Thrown by fail().
struct TestFailure
{};

/// Reports at \a caller that the running test failed, and ends its function by throwing. Not to be
/// called from an event handler, which Qt lets no exception through.
[[noreturn]] void fail(const QString &message, const Caller &caller);

} // namespace quenara::test
