#include "LiveSlideMark.h"

#include "Badge.h"
#include "OutputModeBadge.h"
#include "ThemeColors.h"

#include <QPainter>

namespace quenara {

namespace {

constexpr double markDistance = 3; // points between the mark and the slide

Badge markIn(const QColor &color)
{
    return {.text = QStringLiteral("You are editing the live slide"), .color = color};
}

} // namespace

LiveSlideMark::LiveSlideMark(QWidget *canvas) : QWidget(canvas)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAccessibleName(markIn({}).text);
    hide();
}

void LiveSlideMark::showOver(const QRectF &slide, OutputMode mode)
{
    const QSize size = markIn({}).size().toSize();
    setGeometry({QPoint(int(slide.center().x()) - size.width() / 2,
                        int(slide.top() - markDistance) - size.height()),
                 size});
    if (mode != m_mode)
        update();
    m_mode = mode;
    show();
}

void LiveSlideMark::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    markIn(colorOf(m_mode, themeOf(*this))).paint(painter, {0, 0});
}

} // namespace quenara
