#pragma once

#include <QLabel>
#include <QString>

namespace quenara {

/// A plain-text label that the style sheet knows by its \a role.
[[nodiscard]] QLabel *makeRoleLabel(const QString &role, const QString &text = {});

} // namespace quenara
