#include "Panels.h"

namespace quenara {

void setPanelName(QWidget &widget, const QString &name)
{
    widget.setObjectName(name);
    widget.setAttribute(Qt::WA_StyledBackground);
}

QWidget *makePanel(const QString &name)
{
    auto *panel = new QWidget;
    setPanelName(*panel, name);
    return panel;
}

QWidget *makePanel(const QString &name, int height)
{
    QWidget *panel = makePanel(name);
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
