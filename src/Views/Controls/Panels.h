#pragma once

#include <QWidget>

namespace quenara {

/// Has the style sheet paint the background of \a widget, by the look that it has for \a name.
void setPanelName(QWidget &widget, const QString &name);

/// A new widget with setPanelName().
[[nodiscard]] QWidget *makePanel(const QString &name);
/// The same with a fixed height in points.
[[nodiscard]] QWidget *makePanel(const QString &name, int height);

/// A line between two controls or panels.
[[nodiscard]] QWidget *makeSeparator(Qt::Orientation orientation);

} // namespace quenara
