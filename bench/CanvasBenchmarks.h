#pragma once

#include "Figures.h"

#include <QList>

namespace quenara::bench {

/// What a step of a drag and a typed letter cost on the design canvas of a usual operator window,
/// from the event until the window is painted. Needs a QApplication.
QList<Figure> canvasFigures();

} // namespace quenara::bench
