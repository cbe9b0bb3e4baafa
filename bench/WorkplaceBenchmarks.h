#pragma once

#include "Figures.h"

#include <QList>

namespace quenara::bench {

/// The operator's view over a show of 10,000 slides with both outputs open: how long a click, a
/// key and an edit take until every window is painted, and a turn of the wheel until the list is.
QList<Figure> workplaceFigures();

} // namespace quenara::bench
