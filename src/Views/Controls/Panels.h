#pragma once

#include <QWidget>

namespace quenara {

/// A bar of the given height in points, whose look the style sheet knows by \a name.
QWidget *makePanel(const QString &name, int height);

/// A line between two controls or panels.
QWidget *makeSeparator(Qt::Orientation orientation);

} // namespace quenara
