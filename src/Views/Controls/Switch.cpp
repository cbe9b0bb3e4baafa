#include "Switch.h"

#include "ThemeColors.h"

#include <QPainter>

namespace quenara {

namespace {

constexpr QSize trackSize{30, 18};
constexpr double knobInset = 2;

} // namespace

Switch::Switch(const QString &title, QWidget *parent) : QAbstractButton(parent)
{
    setAccessibleName(title);
    setToolTip(title);
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Switch::sizeHint() const
{
    return trackSize;
}

void Switch::paintEvent(QPaintEvent * /*event*/)
{
    const ZelvoTheme &theme = themeOf(*this);
    const QRectF track = rect();
    const double radius = track.height() / 2;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (!isChecked()) {
        painter.setBrush(underMouse() && isEnabled() ? theme.mutedText : theme.border);
    } else if (isEnabled()) {
        painter.setBrush(underMouse() ? theme.accentHover : theme.accent);
    } else {
        painter.setBrush(theme.mutedText);
    }
    painter.drawRoundedRect(track, radius, radius);

    QRectF knob(track.topLeft(), QSizeF(track.height(), track.height()));
    if (isChecked())
        knob.moveRight(track.right());
    knob.adjust(knobInset, knobInset, -knobInset, -knobInset);
    if (isDown())
        knob.adjust(1, 1, -1, -1);
    painter.setBrush(isEnabled() ? QColor(Qt::white) : theme.secondaryText);
    painter.drawEllipse(knob);
}

} // namespace quenara
