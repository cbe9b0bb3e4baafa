#include "Panels.h"

namespace quenara {

QWidget *makePanel(const QString &name, int height)
{
    auto *panel = new QWidget;
    panel->setObjectName(name);
    panel->setAttribute(Qt::WA_StyledBackground);
    panel->setFixedHeight(height);
    return panel;
}

QWidget *makeSeparator(Qt::Orientation orientation)
{
    auto *line = new QWidget;
    line->setProperty("role", QStringLiteral("separator"));
    line->setAttribute(Qt::WA_StyledBackground);
    if (orientation == Qt::Horizontal) {
        line->setFixedHeight(1);
    } else {
        line->setFixedWidth(1);
    }
    return line;
}

} // namespace quenara
