#include "PreviewNotice.h"

#include "Badge.h"
#include "Fonts.h"
#include "OutputModeBadge.h"
#include "RoundedShapes.h"
#include "ThemeColors.h"

#include <QPainter>
#include <QPainterPath>

namespace quenara {

namespace {

constexpr double badgeSize = 12; // points, as all lengths here
constexpr double badgePadding = 4;
constexpr double stripTextSize = 10;
constexpr double stripHeight = 18;
constexpr double noticeRadius = 5; ///< of the corners, within the preview's outline
constexpr float shadeOpacity = 0.72F;

/// What the slide is darkened with. It lies on a slide, not on the interface: alike in both
/// schemes.
QColor shade()
{
    QColor color = ZelvoTheme::dark().canvasBackground;
    color.setAlphaF(shadeOpacity);
    return color;
}

} // namespace

PreviewNotice::PreviewNotice(QWidget *preview) : QWidget(preview)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

QString PreviewNotice::text() const
{
    switch (m_reason) {
    case Reason::none:
        return {};
    case Reason::blackout:
        return title(OutputMode::blackout).toUpper();
    case Reason::logo:
        return title(OutputMode::logo).toUpper();
    case Reason::noDisplay:
        return QStringLiteral("No display");
    case Reason::waitingDisplay:
        return QStringLiteral("Waiting for the second screen");
    }
    Q_UNREACHABLE();
}

void PreviewNotice::setReason(Reason reason)
{
    if (reason == m_reason)
        return;
    m_reason = reason;
    setGeometry(parentWidget()->rect());
    setVisible(reason != Reason::none);
    update();
}

void PreviewNotice::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipPath(continuousRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), noticeRadius));
    if (m_reason == Reason::blackout || m_reason == Reason::logo) {
        paintMode(painter, m_reason == Reason::logo ? OutputMode::logo : OutputMode::blackout);
    } else {
        paintStrip(painter);
    }
}

void PreviewNotice::paintMode(QPainter &painter, OutputMode mode) const
{
    painter.fillRect(rect(), shade());
    const Badge badge{.text = text(),
                      .color = colorOf(mode, themeOf(*this)),
                      .pixelSize = badgeSize,
                      .verticalPadding = badgePadding};
    QRectF place(QPointF(), badge.size());
    place.moveCenter(QRectF(rect()).center());
    badge.paint(painter, place.topLeft());
}

/// The slide stays to be seen: it is what the display is going to show.
void PreviewNotice::paintStrip(QPainter &painter) const
{
    const ZelvoTheme &theme = ZelvoTheme::dark();
    const QRectF strip(0, height() - stripHeight, width(), stripHeight);
    painter.fillRect(strip, shade());
    painter.setFont(systemFont(stripTextSize, QFont::DemiBold));
    painter.setPen(m_reason == Reason::waitingDisplay ? theme.warning : theme.primaryText);
    painter.drawText(strip, Qt::AlignCenter | Qt::TextSingleLine, text());
}

} // namespace quenara
