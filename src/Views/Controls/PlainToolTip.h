#pragma once

#include <QKeySequence>
#include <QString>

namespace quenara {

/// A tooltip that shows \a text as it is, even if it looks like markup; of a very long one, the
/// beginning.
[[nodiscard]] QString plainToolTip(const QString &text);

/// What a button does, and the key that does it, if any: "Blackout (B)".
[[nodiscard]] QString buttonToolTip(const QString &text, const QKeySequence &key = {});

} // namespace quenara
