#include "Identifier.h"

#include <QUuid>

namespace quenara {

QString newIdentifier()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

} // namespace quenara
