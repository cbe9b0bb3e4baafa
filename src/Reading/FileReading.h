#pragma once

#include <QByteArray>
#include <QUrl>

#include <functional>
#include <optional>

namespace quenara {

/// The size of the largest project file in bytes: the JSON parser takes no more.
inline constexpr qint64 largestFile = 4'000'000'000;

/// Hands the bytes of the file to \a take, piece by piece. False if it cannot be read to its end,
/// is no plain file of this machine, is larger than \a limit or holds more than its size, as files
/// without an end do; some pieces may have been taken then. Never waits for another process.
[[nodiscard]] bool readFile(const QUrl &url, const std::function<void(QByteArrayView)> &take,
                            qint64 limit = largestFile);

/// The bytes of the file, all of them; nothing where readFile() fails. Throws std::bad_alloc.
[[nodiscard]] std::optional<QByteArray> wholeFile(const QUrl &url, qint64 limit = largestFile);

/// When the plain file was modified last, in milliseconds since 1970; 0 if there is none.
[[nodiscard]] qint64 modificationTime(const QUrl &url);

} // namespace quenara
