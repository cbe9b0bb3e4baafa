#pragma once

#include <QString>

namespace quenara::bench {

/// What it takes to open a document in a fresh program with both outputs open, and to step through
/// it: nanoseconds and bytes.
struct WalkThrough
{
    double opening = 0; ///< until all windows are painted
    double memory = 0; ///< resident, at its peak, beyond that of the program without a document
    double slowestStep = 0; ///< likewise painted; of the selection, the queue, the live slide
    double letter = 0; ///< typed into the title of the first slide, likewise painted
};

/// Runs the program in a process of its own on the document at \a path.
[[nodiscard]] WalkThrough walkThrough(const QString &path);

/// The other side of walkThrough(): opens and walks through the document in this process and prints
/// what it took.
void reportWalkThrough(const QString &path);

/// The argument, followed by a path, with which the program is to call reportWalkThrough().
inline constexpr const char *walkThroughArgument = "--walk-through";

} // namespace quenara::bench
