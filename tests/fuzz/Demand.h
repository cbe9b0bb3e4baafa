#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the fuzzing, which then keeps what it was given, unless \a holds.
inline void demand(bool holds, const char *what)
{
    if (!holds) {
        std::fprintf(stderr, "not so: %s\n", what);
        std::abort();
    }
}
