#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

namespace quenara {

/// A symbol of the interface drawn in \a color, sharp at every pixel ratio; in \a onColor, if that
/// is given, while what carries it is switched on. \a symbol is a name in `resources/icons.list`.
QIcon symbolIcon(const QString &symbol, const QColor &color, const QColor &onColor = {});

} // namespace quenara
