#pragma once

#include <functional>

class QWidget;

namespace quenara {

/// Gives the window that a dialog stands on, asked anew for each: one of the operator's, never an
/// output window, on which the audience would see the dialog.
using DialogParent = std::function<QWidget *()>;

} // namespace quenara
