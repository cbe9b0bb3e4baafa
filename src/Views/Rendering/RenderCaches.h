#pragma once

#include "EmojiImageCache.h"
#include "GlyphOutlineCache.h"
#include "ImageCache.h"
#include "PaintingWorkarounds.h"
#include "TextBlockCache.h"

namespace quenara {

/// What painters find out once and use again, whatever slide or window they paint next. Nothing
/// that is seen depends on it: a slide painted with new caches looks the same to the pixel.
/// Belongs to the thread of the windows and, as it holds fonts, must not outlive the QApplication.
struct RenderCaches
{
    ImageCache images{};
    TextBlockCache textBlocks{};
    GlyphOutlineCache outlines{};
    EmojiImageCache emoji{};
    ScaledFontCache fonts{};
};

} // namespace quenara
