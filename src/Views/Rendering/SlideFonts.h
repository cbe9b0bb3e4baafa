#pragma once

#include "SlideDesignModels.h"

#include <QFont>
#include <QString>

namespace quenara {

[[nodiscard]] QFont::Weight fontWeight(TextFontWeight weight);

/// A font of \a family if that is installed, else of its stand-in, else of the system font. It is
/// unhinted, so that its advances scale with its size.
[[nodiscard]] QFont slideFont(const QString &family, TextFontWeight weight, int pixelSize);

} // namespace quenara
