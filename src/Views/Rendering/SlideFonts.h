#pragma once

#include "SlideDesignModels.h"

#include <QFont>
#include <QString>

namespace quenara {

QFont::Weight fontWeight(TextFontWeight weight);

/// An unhinted font, whose advances scale with its size, of \a family where that is installed, else
/// of its stand-in, else of the system font.
QFont slideFont(const QString &family, TextFontWeight weight, int pixelSize);

} // namespace quenara
