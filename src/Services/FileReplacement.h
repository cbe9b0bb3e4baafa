#pragma once

#include <QByteArray>
#include <QString>

namespace quenara {

/// Makes \a bytes the whole content of the file at \a path, all or nothing: a complete new file is
/// brought to the disk and then takes the place of the old one, with its permissions, extended
/// attributes and access list and, where allowed, its owner and its group. Nobody may do more with
/// it than with the old one. A symbolic link stays and its target is replaced; another name of the
/// file (a hard link) keeps the old content. False if that fails, or if something other than a
/// plain file is there; the folder is then as it was.
///
/// Where the file system can have files without a name, a killed process leaves nothing behind, or
/// at most the complete new file, elsewhere a part of it: hidden, readable by those who may read
/// the file, and removed by the next save of it.
///
/// In \a version comes the fileVersion() of the new file; on Linux of the file as it was made, so
/// that what another program writes there, however soon, has another version.
[[nodiscard]] bool replaceFile(const QString &path, const QByteArray &bytes,
                               QString *version = nullptr);

} // namespace quenara
