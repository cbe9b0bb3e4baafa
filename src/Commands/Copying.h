#pragma once

class QWidget;

namespace quenara {

class WorkspaceStore;

// Between the document and the clipboard, by which slides and layers go from one running program to
// another, media included.

/// The types by which a slide and a layer are told there.
inline constexpr const char *slideClipType = "application/x-quenara-slide";
inline constexpr const char *layerClipType = "application/x-quenara-layer";

/// Puts the slide or the layer that was selected last on the clipboard, with its words as plain
/// text. False if there is none, or if it cannot be written.
bool copyToClipboard(const WorkspaceStore &store);

/// Adds what the clipboard holds to the document: a slide, or onto the selected slide a layer,
/// an image or a text. Songs that are written with headings are offered for import while the
/// keyboard is where songs belong, and without a slide to write on. Anything else changes nothing.
void pasteFromClipboard(WorkspaceStore &store);

/// A text with headings that is pasted while \a widget or a part of it has the keyboard is a song.
void takeSongs(QWidget &widget);

} // namespace quenara
