#include "StateFolder.h"

#include <QDir>
#include <QStandardPaths>

namespace quenara {

/// Qt knows the folder from 6.7 on.
QString stateFolder()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    const QString chosen = qEnvironmentVariable("XDG_STATE_HOME");
    // A relative path would name another folder for each folder that the program is started in.
    const QString base =
        QDir::isAbsolutePath(chosen) ? chosen : QDir::homePath() + QStringLiteral("/.local/state");
    return base + QStringLiteral("/Quenara");
#else
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
#endif
}

} // namespace quenara
