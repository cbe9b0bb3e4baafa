#pragma once

class QColorDialog;
class QDialog;
class QSize;

namespace quenara {

/// Gives the parts of one of Qt's own file or colour dialogs what Qt leaves out: names and roles
/// for assistive technologies, and tooltips for the buttons.
void nameParts(QDialog &dialog);

/// Has all of \a dialog but its buttons scroll if it is larger than \a room, in points.
void fitInto(const QSize &room, QColorDialog &dialog);

} // namespace quenara
