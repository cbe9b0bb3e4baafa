#include "ElidedLabel.h"

#include <QPainter>

namespace quenara {

ElidedLabel::ElidedLabel(const QString &role, QWidget *parent) : QLabel(parent)
{
    setProperty("role", role);
    setTextFormat(Qt::PlainText);
}

QString ElidedLabel::line() const
{
    return text().simplified();
}

QSize ElidedLabel::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    return {metrics.horizontalAdvance(line()), metrics.height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, fontMetrics().height()};
}

void ElidedLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.drawText(rect(), int(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextSingleLine,
                     fontMetrics().elidedText(line(), Qt::ElideRight, width()));
}

} // namespace quenara
