#pragma once

#include <functional>

class QDialog;
class QWidget;

namespace quenara {

/// Gives the window that owns what the operator is asked. It lives as long as the program, and the
/// audience never sees it.
using DialogOwner = std::function<QWidget *()>;

/// Runs \a dialog, which belongs to the operator's window, over whatever sheet or alert lies in
/// front of that, and then gives the keyboard to what is in front. The dialog does not belong to
/// the sheet, which may close meanwhile. Returns what the dialog returned.
int runInFront(QDialog &dialog);

} // namespace quenara
