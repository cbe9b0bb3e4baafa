#pragma once

#include <QString>

namespace quenara {

/// \a text as a tooltip of just these characters, whatever markup they look like.
QString plainToolTip(const QString &text);

} // namespace quenara
