#pragma once

#include <QByteArray>
#include <QString>

namespace quenara {

/// Makes \a bytes the whole content of the file at \a path, all or nothing: a complete new file is
/// brought to the disk and then takes the place of the old one, with its permissions and, where
/// allowed, its owner and its group. A symbolic link stays and its target is replaced. False if
/// that fails; the folder is then as it was.
///
/// Where the file system can have files without a name, a killed process leaves nothing behind
/// either, or at most, hidden and until the next save, the complete new file.
[[nodiscard]] bool replaceFile(const QString &path, const QByteArray &bytes);

} // namespace quenara
