#pragma once

#include <QAbstractEventDispatcher>

namespace quenara::bench {

/// Handles events until all that a step changes is painted.
inline void settle()
{
    QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    while (dispatcher->processEvents(QEventLoop::AllEvents)) {}
}

} // namespace quenara::bench
