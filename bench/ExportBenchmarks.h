#pragma once

#include "Figures.h"

#include <QList>

namespace quenara::bench {

/// How long the program stands still at most while 500 slides are exported, in each way that they
/// can be. Needs a QApplication.
QList<Figure> exportFigures();

} // namespace quenara::bench
