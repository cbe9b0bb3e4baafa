#pragma once

#include "Figures.h"

namespace quenara::bench {

/// What the recovery journal adds to editing a project of 100 MB and to a step of the show, and how
/// long a service takes to come back.
QList<Figure> recoveryFigures();

} // namespace quenara::bench
