#pragma once

#include "SlideDesignModels.h"

#include <QFont>
#include <QString>

namespace quenara {

[[nodiscard]] QFont::Weight fontWeight(TextFontWeight weight);

/// \a family if that is installed, else its stand-in, else the family of the system font.
[[nodiscard]] QString slideFamily(const QString &family);

/// A font of slideFamily(). It is unhinted, so that its advances scale with its size.
[[nodiscard]] QFont slideFont(const QString &family, TextFontWeight weight, int pixelSize);

} // namespace quenara
