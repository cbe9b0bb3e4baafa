#include "Files.h"

#include <QFile>

namespace quenara::test {

void writeFile(const QString &path, const QByteArray &bytes, const Caller &caller)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        fail(QStringLiteral("cannot write ") + path, caller);
}

} // namespace quenara::test
