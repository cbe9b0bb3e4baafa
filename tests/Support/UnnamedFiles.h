#pragma once

#include <QString>

namespace quenara::test {

/// Whether files can be made in \a folder that have no name until they are whole.
bool hasUnnamedFiles(const QString &folder);

/// For a QTemporaryDir where hasUnnamedFiles(): among the temporary files or, where their file
/// system has none, in the memory that Linux keeps for sharing.
QString folderTemplateWithUnnamedFiles();

} // namespace quenara::test
