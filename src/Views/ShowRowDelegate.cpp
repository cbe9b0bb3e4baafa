#include "ShowRowDelegate.h"

#include "Badge.h"
#include "RoundedShapes.h"
#include "ShowListModel.h"
#include "SlideFonts.h"
#include "ZelvoTheme.h"

#include <QFontMetricsF>
#include <QPainter>

namespace quenara {

namespace {

constexpr int rowHeight = 36;
constexpr double sideMargin = 8;
constexpr double cornerRadius = 6;
constexpr double numberRight = 28;
constexpr double titleLeft = 40;
constexpr double gap = 8;
constexpr double textSize = 13;
constexpr double numberSize = 11;

void drawText(QPainter &painter, const QString &text, const QFont &font, const QColor &color,
              const QRectF &box, Qt::Alignment alignment)
{
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(box, int(alignment | Qt::AlignVCenter) | Qt::TextSingleLine,
                     QFontMetricsF(font).elidedText(text, Qt::ElideRight, box.width()));
}

/// Draws \a badge at the right of \a free and takes its room away.
void placeBadge(QPainter &painter, const Badge &badge, QRectF &free)
{
    const QSizeF size = badge.size();
    painter.save();
    badge.paint(painter, {free.right() - size.width(), free.center().y() - size.height() / 2});
    painter.restore();
    free.setRight(free.right() - size.width() - gap);
}

void paintSlideRow(QPainter &painter, const QRectF &row, const QModelIndex &index,
                   const ZelvoTheme &theme)
{
    const bool isSelected = index.data(ShowListModel::isSelectedRole).toBool();
    const bool isQueued = index.data(ShowListModel::isQueuedRole).toBool();
    const QPainterPath shape =
        continuousRoundedRect(row.adjusted(0.5, 1.5, -0.5, -1.5), cornerRadius);
    if (isSelected)
        painter.fillPath(shape, theme.selection);
    if (isQueued)
        painter.strokePath(shape, QPen(theme.accent, 1));

    const QRectF number(row.left(), row.top(), numberRight, row.height());
    drawText(painter, QString::number(index.data(ShowListModel::numberRole).toInt()),
             systemFont(numberSize, QFont::Normal),
             isSelected ? theme.secondaryText : theme.mutedText, number, Qt::AlignRight);
    QRectF title = row.adjusted(titleLeft, 0, -gap, 0);
    if (index.data(ShowListModel::isLiveRole).toBool())
        placeBadge(painter, {.text = QStringLiteral("LIVE"), .color = theme.live}, title);
    if (isQueued) {
        placeBadge(painter,
                   {.text = QStringLiteral("QUEUED"), .color = theme.accent, .isFilled = false},
                   title);
    }
    drawText(painter, index.data(Qt::DisplayRole).toString(), systemFont(textSize, QFont::Medium),
             theme.primaryText, title, Qt::AlignLeft);
}

} // namespace

void ShowRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    const ZelvoTheme &theme = ZelvoTheme::current(colorSchemeOf(option.palette));
    const QRectF row = QRectF(option.rect).adjusted(sideMargin, 0, -sideMargin, 0);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (index.data(ShowListModel::slideIDRole).isNull()) {
        drawText(*painter, index.data(Qt::DisplayRole).toString(),
                 systemFont(textSize, QFont::DemiBold), theme.secondaryText,
                 row.adjusted(gap, 0, -gap, 0), Qt::AlignLeft);
    } else {
        paintSlideRow(*painter, row, index, theme);
    }
    painter->restore();
}

QSize ShowRowDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    return {option.rect.width(), rowHeight};
}

} // namespace quenara
