#pragma once

#include <QString>

namespace quenara {

/// \a path as people read it: the home folder at its beginning is written "~".
[[nodiscard]] QString shownPath(const QString &path);

} // namespace quenara
