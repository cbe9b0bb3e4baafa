#pragma once

#include <QByteArray>
#include <QUrl>

#include <optional>

namespace quenara {

/// The size of the largest project file in bytes: the JSON parser takes no more.
inline constexpr qint64 largestFile = 4'000'000'000;

/// The bytes of the file, all of them. Nothing if it cannot be read to its end, is no plain file
/// of this machine or is larger than \a limit. Throws std::bad_alloc.
[[nodiscard]] std::optional<QByteArray> wholeFile(const QUrl &url, qint64 limit = largestFile);

} // namespace quenara
