#pragma once

#include "EditedText.h"
#include "InputMethodEdits.h"
#include "TextLayerPlacement.h"
#include "TextLayoutGeometry.h"

#include <QPainter>

namespace quenara {

struct RenderCaches;
struct ZelvoTheme;

/// The text of a layer as it is edited on the canvas: on a plate of its own, with the selection,
/// what an input method composes, and the caret.
struct EditedTextView
{
    const TextElementProperties &text; ///< with what is composed
    const TextLayerPlacement &placement;
    const EditedText &edit;
    const Preedit &preedit;
    TextLayoutGeometry &places; ///< of \c text
    bool showsCaret;

    /// \a painter draws in points of the canvas.
    void paint(QPainter &painter, const ZelvoTheme &theme, RenderCaches &caches) const;

    /// How far the line around the plate reaches beyond it, in points.
    static constexpr double outlineMargin = 1;
};

/// The caret before the character at \a position, in points from the top left of the box; \a scale
/// points are one canvas unit.
[[nodiscard]] QRectF scaledCaret(const TextLayoutGeometry &places, qsizetype position,
                                 double scale);

} // namespace quenara
