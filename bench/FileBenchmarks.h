#pragma once

#include "Figures.h"

#include <QList>

namespace quenara::bench {

/// What it costs to read, normalize and write a project of 10,000 slides in 200 items.
QList<Figure> fileFigures();

} // namespace quenara::bench
