#pragma once

#include <QString>

namespace quenara {

/// A tooltip that shows \a text as it is, even if it looks like markup.
[[nodiscard]] QString plainToolTip(const QString &text);

} // namespace quenara
