#pragma once

class QDialog;

namespace quenara {

/// Gives the parts of one of Qt's own file or colour dialogs what Qt leaves out: names and roles
/// for assistive technologies, and tooltips for the buttons.
void nameParts(QDialog &dialog);

} // namespace quenara
