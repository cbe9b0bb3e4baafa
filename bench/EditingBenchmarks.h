#pragma once

#include "Figures.h"

#include <QList>

namespace quenara::bench {

/// What it costs to edit a project of 10,000 slides in 200 items and to step through it.
QList<Figure> editingFigures();

} // namespace quenara::bench
