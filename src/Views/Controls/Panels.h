#pragma once

#include <QWidget>

namespace quenara {

/// Has the style sheet paint the background of \a widget, by the look that it has for \a name.
void setPanelName(QWidget &widget, const QString &name);

/// A widget with setPanelName().
QWidget *makePanel(const QString &name);
/// The same, of a fixed height in points.
QWidget *makePanel(const QString &name, int height);

/// A line between two controls or panels.
QWidget *makeSeparator(Qt::Orientation orientation);

} // namespace quenara
