#pragma once

#include <QByteArray>
#include <QUrl>

#include <optional>

namespace quenara {

/// More than this no project file holds, since its parser does not take more.
inline constexpr qint64 largestFile = 4'000'000'000;

/// The bytes of the file, all of them. Nothing if it cannot be read to its end, is no plain file
/// of this machine or is larger than \a limit. Throws std::bad_alloc.
std::optional<QByteArray> wholeFile(const QUrl &url, qint64 limit = largestFile);

} // namespace quenara
