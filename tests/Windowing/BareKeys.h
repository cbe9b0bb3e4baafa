#pragma once

#include "Command.h"

#include <QKeySequence>

namespace quenara::test {

/// The keys of the menus that need no modifier, and two more that lists take.
inline QList<Qt::Key> bareKeys()
{
    QList<Qt::Key> found{Qt::Key_Home, Qt::Key_End};
    for (const CommandDescription &description : commandDescriptions()) {
        for (const char *key : description.keys) {
            const QKeySequence keys(QString::fromUtf8(key), QKeySequence::PortableText);
            if (!keys.isEmpty() && keys[0].keyboardModifiers() == Qt::NoModifier)
                found.append(keys[0].key());
        }
    }
    return found;
}

} // namespace quenara::test
