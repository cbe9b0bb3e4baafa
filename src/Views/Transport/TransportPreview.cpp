#include "TransportPreview.h"

#include "ElidedLabel.h"
#include "ProjectModels.h"
#include "RoleLabel.h"
#include "SlideView.h"
#include "ThemeColors.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace quenara {

namespace {

constexpr QSize slideSize{178, 100};
constexpr int rightMargin = TransportPreview::fullWidth - slideSize.width();
constexpr int captionHeight = 14;
constexpr int captionGap = 4;
constexpr int captionSpacing = 6;
constexpr int dotSize = 6;
constexpr double cornerRadius = 6;
constexpr double outlineOpacity = 0.8;

} // namespace

TransportPreview::TransportPreview(const QString &title, QColor ZelvoTheme::*accent,
                                   RenderCaches &caches, QWidget *parent)
    : QWidget(parent), m_title(title), m_accent(accent),
      m_slideTitle(new ElidedLabel(QStringLiteral("previewTitle"))),
      m_slideView(new SlideView(caches)), m_notice(new PreviewNotice(m_slideView))
{
    m_slideView->setCornerRadius(cornerRadius);
    m_slideView->setOutline(accent, outlineOpacity);
    m_slideView->setAccessibleName(QStringLiteral("%1 slide").arg(title));
    auto *caption = new QHBoxLayout;
    caption->setContentsMargins(dotSize + captionSpacing, 0, 0, 0);
    caption->setSpacing(captionSpacing);
    QLabel *name = makeRoleLabel(QStringLiteral("previewCaption"), title);
    name->setFixedHeight(captionHeight);
    m_slideTitle->setFixedHeight(captionHeight);
    caption->addWidget(name);
    caption->addWidget(m_slideTitle, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, rightMargin, 0);
    layout->setSpacing(captionGap);
    layout->addLayout(caption);
    layout->addWidget(m_slideView);
    fitInto(fullWidth);
}

void TransportPreview::fitInto(int room)
{
    const int width = std::clamp(room, leastWidth, fullWidth) - rightMargin;
    const QSize slide(width, qRound(double(width) * slideSize.height() / slideSize.width()));
    m_slideView->setFixedSize(slide);
    m_notice->resize(slide);
    setFixedSize(width + rightMargin, captionHeight + captionGap + slide.height());
}

void TransportPreview::setSlide(const std::optional<Slide> &slide)
{
    const QString title = slide ? slide->title : QStringLiteral("None");
    m_slideTitle->setText(title);
    m_slideView->setSlide(slide);
    describe();
}

void TransportPreview::setNotice(PreviewNotice::Reason reason)
{
    m_notice->setReason(reason);
    describe();
}

void TransportPreview::describe()
{
    const QString notice = m_notice->text();
    m_slideView->setAccessibleDescription(
        notice.isEmpty() ? m_slideTitle->text()
                         : QStringLiteral("%1, %2").arg(m_slideTitle->text(), notice));
}

/// Paints the accent as a dot before the caption, which is too small to be read in that colour.
void TransportPreview::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(themeOf(*this).*m_accent);
    painter.drawEllipse(QRectF(0, (captionHeight - dotSize) / 2.0, dotSize, dotSize));
}

} // namespace quenara
