#include "UnnamedFiles.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <unistd.h>

namespace quenara::test {

bool hasUnnamedFiles(const QString &folder)
{
    const int file = ::open(QFile::encodeName(folder).constData(), O_TMPFILE | O_WRONLY, 0600);
    if (file >= 0)
        ::close(file);
    return file >= 0;
}

QString folderTemplateWithUnnamedFiles()
{
    const QString place =
        hasUnnamedFiles(QDir::tempPath()) ? QDir::tempPath() : QStringLiteral("/dev/shm");
    return place + QStringLiteral("/quenara-XXXXXX");
}

} // namespace quenara::test
