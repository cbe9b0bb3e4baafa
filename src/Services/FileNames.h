#pragma once

#include <QString>

namespace quenara {

/// \a name, which has a suffix, as the name of a file that is not hidden in a folder: without
/// separators, quotes and control characters, and no longer than file systems take.
[[nodiscard]] QString fileNameFrom(const QString &name);

/// The beginning of \a text as a part of a file's name that every system and memory stick takes:
/// without their separators and signs, and without dots and spaces at its ends. May be empty.
[[nodiscard]] QString portableName(const QString &text);

} // namespace quenara
