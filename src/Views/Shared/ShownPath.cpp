#include "ShownPath.h"

#include <QDir>

namespace quenara {

QString shownPath(const QString &path)
{
    const QString home = QDir::homePath();
    return path.startsWith(home + QLatin1Char('/')) ? QLatin1Char('~') + path.mid(home.size())
                                                    : path;
}

} // namespace quenara
