#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QUrl>

#include <functional>
#include <optional>

struct stat;

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

/// Up to which size a file's bytes tell its version: going through so many takes about a
/// twentieth of a second.
inline constexpr qint64 mostComparedBytes = qint64(32) << 20U;

/// What differs once the plain file at \a url has changed; empty if there is none. It is told by
/// the bytes, so that neither a clock's steps nor times that are put back hide a change, and other
/// permissions, another name or an equal copy in its place are none. Of a file that is larger, or
/// cannot be read, it is told by its size, its number in the file system and the times when it was
/// modified and when anything about it changed, permissions included.
[[nodiscard]] QString fileVersion(const QUrl &url);
/// The same of a file that holds \a bytes; empty if they are more than are compared.
[[nodiscard]] QString versionOf(QByteArrayView bytes);
#ifdef Q_OS_LINUX
/// The same of a larger file with these attributes.
[[nodiscard]] QString versionByTimes(const struct stat &attributes);
#endif

} // namespace quenara
