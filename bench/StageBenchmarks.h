#pragma once

#include "Figures.h"

#include <QList>

namespace quenara::bench {

/// What the stage monitor costs: all of it drawn afresh, and what a step through the show makes it
/// redraw beside what that makes the audience's window redraw. Needs a QApplication.
QList<Figure> stageFigures();

} // namespace quenara::bench
