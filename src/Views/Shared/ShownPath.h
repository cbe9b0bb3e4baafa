#pragma once

#include <QString>

namespace quenara {

/// The path as people read it: below the home folder from "~" on.
QString shownPath(const QString &path);

} // namespace quenara
