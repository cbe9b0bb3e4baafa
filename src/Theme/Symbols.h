#pragma once

#include <QColor>
#include <QString>

class QPainter;
class QRect;

namespace quenara {

/// Paints a symbol of the interface into \a place, in points, in one colour and sharp at every
/// pixel ratio. \a symbol is a name in `resources/icons.list`.
void paintSymbol(QPainter &painter, const QRect &place, const QString &symbol, const QColor &color);

} // namespace quenara
