#pragma once

#include "SlideDesignModels.h"

#include <QFont>
#include <QString>

namespace quenara {

/// Makes the faces that are compiled into the program available: Lato and Inter in all five
/// weights. To be called once before anything is drawn. Returns how many faces were added.
int loadBundledFonts();

/// The family of the interface, the holding screen and what a slide leaves to the system.
QString systemFontFamily();

/// The installed family of emoji in colour; empty without one.
QString emojiFontFamily();

QFont::Weight fontWeight(TextFontWeight weight);

/// An unhinted font, whose advances scale with its size, of \a family where that is installed, else
/// of its stand-in, else of the system font.
QFont slideFont(const QString &family, TextFontWeight weight, int pixelSize);

/// The font of a screen text at a fixed size in points of the window.
QFont systemFont(double pixelSize, QFont::Weight weight);

} // namespace quenara
