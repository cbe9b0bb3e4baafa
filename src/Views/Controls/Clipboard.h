#pragma once

#include <QClipboard>
#include <QString>

class QMimeData;

namespace quenara {

/// What is on the clipboard; null where there is nothing, as on X11 after a login.
[[nodiscard]] const QMimeData *clipboardContents(QClipboard::Mode mode = QClipboard::Clipboard);

/// The text that a paste of \a source writes, its lines ended by line feeds. Empty where there is
/// none, and for null.
[[nodiscard]] QString pastedText(const QMimeData *source);

/// The same for the clipboard or the selection, as \a mode says. After a login on X11 nobody owns
/// either.
[[nodiscard]] QString pastedText(QClipboard::Mode mode);

} // namespace quenara
