#pragma once

#include "Figures.h"

#include <QList>

namespace quenara::bench {

/// What documents cost that hold far more of one thing than anybody needs: to open them with all
/// windows, to step through them, to type into them. Each runs in a process of its own.
QList<Figure> extremeFigures();

} // namespace quenara::bench
