#pragma once

#include <QPainter>
#include <QRectF>

namespace quenara {

/// The holding screen: the product's name over a bar, centred on black. Its sizes are points of
/// the window, whatever the window's size.
struct HoldingScreenView
{
    void paint(QPainter &painter, const QRectF &area) const;
};

} // namespace quenara
