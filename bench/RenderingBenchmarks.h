#pragma once

#include "Figures.h"

#include <QList>

namespace quenara::bench {

/// What it costs to paint one frame of a slide whose text is laid out and whose image is decoded.
/// Needs a QGuiApplication.
QList<Figure> renderingFigures();

} // namespace quenara::bench
