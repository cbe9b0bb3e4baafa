#include "RoleLabel.h"

namespace quenara {

QLabel *makeRoleLabel(const QString &role, const QString &text)
{
    auto *label = new QLabel(text);
    label->setProperty("role", role);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace quenara
