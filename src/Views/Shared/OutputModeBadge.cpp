#include "OutputModeBadge.h"

#include "ThemeColors.h"

#include <QPainter>

namespace quenara {

QColor colorOf(OutputMode mode, const ZelvoTheme &theme)
{
    switch (mode) {
    case OutputMode::live:
        return theme.live;
    case OutputMode::blackout:
        return theme.blackout;
    case OutputMode::logo:
        break;
    }
    return theme.accent;
}

OutputModeBadge::OutputModeBadge(const BadgeLook &look, QWidget *parent)
    : QWidget(parent), m_look(look)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(badge().text);
}

void OutputModeBadge::setLook(const BadgeLook &look)
{
    m_look = look;
    updateGeometry();
    update();
}

void OutputModeBadge::setMode(OutputMode mode)
{
    if (mode == m_mode)
        return;
    m_mode = mode;
    setAccessibleName(badge().text);
    updateGeometry();
    update();
}

Badge OutputModeBadge::badge() const
{
    return {.text = title(m_mode).toUpper(),
            .color = colorOf(m_mode, themeOf(*this)),
            .pixelSize = m_look.pixelSize,
            .horizontalPadding = m_look.horizontalPadding,
            .verticalPadding = m_look.verticalPadding,
            .cornerRadius = m_look.cornerRadius};
}

QSize OutputModeBadge::sizeHint() const
{
    return badge().size().toSize();
}

void OutputModeBadge::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    badge().paint(painter, {0, 0});
}

} // namespace quenara
