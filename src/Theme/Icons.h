#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

namespace quenara {

/// A bundled symbol drawn in \a color, sharp at every pixel ratio. \a name is the symbol's file
/// name without suffix; it must be among the bundled ones.
QIcon tintedIcon(const QString &name, const QColor &color);

} // namespace quenara
