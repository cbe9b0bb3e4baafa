#pragma once

#include "RundownEdits.h"

#include <QPointF>

#include <functional>

/// Edits of the selected slide's layers and background, as those of RundownEdits.h. Each brings the
/// slide's body in step with its design; nothing comes back without a selected slide, or without a
/// selected layer on it where one is needed.
namespace quenara::edits {

/// Adds a text of the standard lyric style on top, selected. Its name and its first text go by
/// \a kind; every kind but scripture and lyric is plain text.
[[nodiscard]] Edited addTextLayer(WorkspaceState state, SlideElementKind kind);

/// Adds a translucent rectangle on top, selected.
[[nodiscard]] Edited addShapeLayer(WorkspaceState state);

/// Adds \a media as a layer of half the canvas each way in its middle, on top, selected.
[[nodiscard]] Edited addImageLayer(WorkspaceState state, const SlideMedia &media);

/// The same around \a middle, in canvas units, and within the canvas as far as that has room.
[[nodiscard]] Edited placeImageLayer(WorkspaceState state, const SlideMedia &media,
                                     const QPointF &middle);

/// Adds a plain text layer that says \a text, as addTextLayer() does.
[[nodiscard]] Edited pasteText(WorkspaceState state, const QString &text);

/// A copied layer, under a new id, where it was copied from, on top, selected. On that slide it
/// lies a little to the right and below of what is there already, and on another one of its like.
[[nodiscard]] Edited pasteLayer(WorkspaceState state, const LayerClip &clip);

/// What else the background holds stays, for when its kind changes back.
[[nodiscard]] Edited setBackgroundImage(WorkspaceState state, const SlideMedia &media);

[[nodiscard]] Edited updateSelectedElement(WorkspaceState state,
                                           const std::function<void(SlideElement &)> &update);

/// A copy under a new id on top, a little to the right and below; selected.
[[nodiscard]] Edited duplicateSelectedElement(WorkspaceState state);

/// Puts the remaining layers in the order of their zIndex; the lowest is selected.
[[nodiscard]] Edited deleteSelectedElement(WorkspaceState state);

/// \a frame with its middle on that of \a canvas, from left to right or from top to bottom. A layer
/// is turned about the middle of its frame, which is therefore that of what is seen, too.
[[nodiscard]] CanvasFrame centeredHorizontally(const CanvasFrame &frame, const CanvasSize &canvas);
[[nodiscard]] CanvasFrame centeredVertically(const CanvasFrame &frame, const CanvasSize &canvas);

/// Centres it so on the slide's canvas. A layer that stands there stays: an edit without a change.
[[nodiscard]] Edited centerSelectedElementHorizontally(WorkspaceState state);
[[nodiscard]] Edited centerSelectedElementVertically(WorkspaceState state);

/// Raises the zIndex by one, whatever that of the other layers is.
[[nodiscard]] Edited bringSelectedElementForward(WorkspaceState state);
[[nodiscard]] Edited sendSelectedElementBackward(WorkspaceState state);

} // namespace quenara::edits
