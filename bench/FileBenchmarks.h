#pragma once

#include "Figures.h"

#include <QList>
#include <QString>

namespace quenara::bench {

/// What it costs to load, normalize and write projects: one of many slides, one of many megabytes
/// of images.
QList<Figure> fileFigures();

/// The other side of the memory figures: loads the project at \a path in this fresh process and
/// prints what it took, for fileFigures() to read.
void reportMemoryOfLoading(const QString &path);

/// The argument, followed by a path, with which the program is to call reportMemoryOfLoading().
inline constexpr const char *memoryArgument = "--memory-of-loading";

} // namespace quenara::bench
