#pragma once

#include "SlideDesignModels.h"

#include <QPointF>

#include <optional>
#include <vector>

class QKeyEvent;

namespace quenara {

// What keys do on the design canvas. All lengths are in canvas units.

/// How far Ctrl with an arrow key moves a layer: one unit or, with Shift, ten. Nothing for any
/// other key.
[[nodiscard]] std::optional<QPointF> moveOf(const QKeyEvent &event);

/// How far Ctrl and Alt with an arrow key move a layer's bottom-right corner, likewise.
[[nodiscard]] std::optional<QPointF> growthOf(const QKeyEvent &event);

/// Whether the key presses what has the keyboard.
[[nodiscard]] bool pressesByKey(const QKeyEvent &event);

/// Whether the key opens what has the keyboard for editing.
[[nodiscard]] bool editsByKey(const QKeyEvent &event);

/// All layers from the topmost down, hidden and locked ones included. They are those of \a design.
[[nodiscard]] std::vector<const SlideElement *> layersFromTop(const SlideDesign &design);

/// The layer that comes after that one when they are gone through from the topmost down or, unless
/// \a downwards, from the lowest up; the first after none, nothing after the last.
[[nodiscard]] std::optional<QString> layerAfter(const SlideDesign &design,
                                                const std::optional<QString> &id, bool downwards);

} // namespace quenara
