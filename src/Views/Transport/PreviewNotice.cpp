#include "PreviewNotice.h"

#include "Badge.h"
#include "Fonts.h"
#include "OutputModeBadge.h"
#include "RoundedShapes.h"
#include "ThemeColors.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace quenara {

namespace {

constexpr double badgeSize = 12; // points, as all lengths here
constexpr double badgePadding = 4;
constexpr double stripTextSize = 10;
constexpr double stripPadding = 3; ///< above and below the text
constexpr double stripMargin = 4; ///< left and right of it
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
    painter.setFont(systemFont(stripTextSize, QFont::DemiBold));
    const QRectF room = QRectF(rect()).adjusted(stripMargin, 0, -stripMargin, 0);
    constexpr int flags = Qt::AlignCenter | Qt::TextWordWrap;
    const double textHeight = painter.boundingRect(room, flags, text()).height();
    const double stripHeight = std::ceil(textHeight + 2 * stripPadding);
    const QRectF strip(0, height() - stripHeight, width(), stripHeight);
    painter.fillRect(strip, shade());
    painter.setPen(m_reason == Reason::waitingDisplay ? theme.warning : theme.primaryText);
    painter.drawText(strip.adjusted(stripMargin, 0, -stripMargin, 0), flags, text());
}

} // namespace quenara
