#include "ElidedLabel.h"

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

QString ElidedLabel::line() const
{
    return text().simplified();
}

QSize ElidedLabel::sizeHint() const
{
    const double width = QFontMetricsF(font()).horizontalAdvance(line());
    return {int(std::ceil(width)), fontMetrics().height()};
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
                     QFontMetricsF(font()).elidedText(line(), m_elideMode, width()));
}

} // namespace quenara
