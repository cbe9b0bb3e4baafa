#include "ProcessMemory.h"

#include <QFile>
#include <QList>

namespace quenara::bench {

double memoryStatus(QByteArrayView key)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : status.readAll().split('\n')) {
            if (line.startsWith(key))
                return line.mid(key.size()).simplified().split(' ').constFirst().toDouble() * 1024;
        }
    }
    qFatal("no %s in the process's status", key.data());
}

} // namespace quenara::bench
