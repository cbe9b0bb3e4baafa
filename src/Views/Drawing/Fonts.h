#pragma once

#include <QFont>
#include <QString>

namespace quenara {

/// Adds the faces that are compiled into the program, Lato and Inter in all five weights, to the
/// application's. To be called once, before anything is drawn. Returns how many faces were added.
int loadBundledFonts();

/// Whether a family of exactly this name, in any case, is installed or bundled. Later changes of
/// what is installed are not noticed.
[[nodiscard]] bool isFamilyInstalled(const QString &family);

/// Whether \a family is compiled in, with letters of Latin, Greek and Cyrillic.
[[nodiscard]] bool isFamilyBundled(const QString &family);

/// The family of the interface, of the holding screen, and of slides whose family has no stand-in.
[[nodiscard]] QString systemFontFamily();

/// The installed family of emoji in colour. Empty if there is none.
[[nodiscard]] QString emojiFontFamily();

/// The unhinted system font at \a pixelSize points of the window.
[[nodiscard]] QFont systemFont(double pixelSize, QFont::Weight weight);

} // namespace quenara
