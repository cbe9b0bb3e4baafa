#include "ElidedLabel.h"

#include "ElidedText.h"
#include "PlainToolTip.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <cmath>

namespace quenara {

ElidedLabel::ElidedLabel(const QString &role, QWidget *parent) : QLabel(parent)
{
    setProperty("role", role);
    setTextFormat(Qt::PlainText);
}

void ElidedLabel::setElideMode(Qt::TextElideMode mode)
{
    m_elideMode = mode;
    update();
}

QSize ElidedLabel::sizeHint() const
{
    const QFontMetricsF metrics(font());
    const QString line = elidedText(text(), metrics, m_elideMode, QWIDGETSIZE_MAX);
    return {int(std::ceil(metrics.horizontalAdvance(line))), fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, fontMetrics().height()};
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || sizeHint().width() <= width())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), plainToolTip(text()), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.drawText(rect(), int(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextSingleLine,
                     elidedText(text(), QFontMetricsF(font()), m_elideMode, width()));
}

} // namespace quenara
