#pragma once

#include <QFont>
#include <QString>

namespace quenara {

/// Makes the faces that are compiled into the program available: Lato and Inter in all five
/// weights. To be called once before anything is drawn. Returns how many faces were added.
int loadBundledFonts();

/// Whether fonts of exactly this \a family (in any case) were there when this was first asked.
bool isFamilyInstalled(const QString &family);

/// The family of the interface, the holding screen and what a slide leaves to the system.
QString systemFontFamily();

/// The installed family of emoji in colour; empty without one.
QString emojiFontFamily();

/// The font of a screen text at a fixed size in points of the window.
QFont systemFont(double pixelSize, QFont::Weight weight);

} // namespace quenara
