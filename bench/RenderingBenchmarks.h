#pragma once

#include "Figures.h"

#include <QList>

namespace quenara::bench {

/// What it costs to paint one frame of a slide, its text laid out afresh and its picture decoded.
/// Needs a QGuiApplication.
QList<Figure> renderingFigures();

} // namespace quenara::bench
