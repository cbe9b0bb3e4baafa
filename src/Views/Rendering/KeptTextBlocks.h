#pragma once

#include "TextBlock.h"

#include <memory>

namespace quenara {

/// \a text laid out in a box of that \a size, without its padding. The last ones are kept, as
/// outlines of glyphs are: a slide is painted in many places, and its lines break alike in all of
/// them. For the thread of the windows only.
std::shared_ptr<TextBlock> keptTextBlock(const TextElementProperties &text, const QSizeF &size);

} // namespace quenara
