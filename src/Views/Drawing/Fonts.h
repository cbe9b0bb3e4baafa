#pragma once

#include <QFont>
#include <QString>

namespace quenara {

/// Adds the faces that are compiled into the program, Lato and Inter in all five weights, to the
/// application's. They have names of the program's own, since an installed Lato or Inter may be
/// another release of it. To be called once, before anything is drawn. Returns how many were added.
int loadBundledFonts();

/// Whether a family of exactly this name, in any case, is installed or bundled. Later changes of
/// what is installed are not noticed.
[[nodiscard]] bool isFamilyInstalled(const QString &family);

/// Whether \a family is one of the two that are compiled in, in any case: with letters of Latin,
/// Greek and Cyrillic.
[[nodiscard]] bool isFamilyBundled(const QString &family);

/// The compiled-in family of slides, made of Lato.
[[nodiscard]] QString slideFontFamily();

/// The compiled-in family made of Inter: that of the interface and of the holding screen, and the
/// one that stands in on slides for all that have no other stand-in.
[[nodiscard]] QString systemFontFamily();

/// The installed family of emoji in colour. Empty if there is none.
[[nodiscard]] QString emojiFontFamily();

/// The unhinted system font at \a pixelSize points of the window.
[[nodiscard]] QFont systemFont(double pixelSize, QFont::Weight weight);

} // namespace quenara
