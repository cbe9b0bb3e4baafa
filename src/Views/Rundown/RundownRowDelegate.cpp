#include "RundownRowDelegate.h"

#include "Badge.h"
#include "ElidedText.h"
#include "Fonts.h"
#include "OutputModeBadge.h"
#include "PaintingWorkarounds.h"
#include "PlainToolTip.h"
#include "RoundedShapes.h"
#include "RundownModel.h"
#include "SlideThumbnails.h"
#include "Symbols.h"
#include "TextField.h"
#include "TextNotice.h"
#include "ThemeColors.h"
#include "ZelvoTheme.h"

#include <QAbstractItemView>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include <algorithm>

namespace quenara {

namespace {

constexpr int itemRowHeight = 38;
constexpr int slideRowHeight = 48;
constexpr double sideMargin = 8;
constexpr double cornerRadius = 6;
constexpr double thumbnailRadius = 4;
constexpr double pointerLeft = 2.5;
constexpr double numberLeft = 9; // beside the pointer
constexpr double numberRight = 30;
constexpr double thumbnailLeft = 34;
constexpr double gap = 8;
constexpr double itemSymbolLeft = 8;
constexpr double itemTitleLeft = 32;
constexpr int symbolSize = 16;
constexpr double textSize = 12;
constexpr double pointerSize = 7;
constexpr int cardOffset = 3; ///< of the card below that of a row that is dragged
constexpr int warningSize = 12;
constexpr int warningPlate = 16; ///< that the warning lies on, in the thumbnail's corner

QFont titleFont()
{
    return systemFont(textSize, QFont::Medium);
}

QFont itemFont()
{
    return systemFont(textSize, QFont::DemiBold);
}

/// The digits of \a number, in letters of which so many fit into the room for it.
QFont numberFont(int number)
{
    const double size = number < 1000 ? 11 : number < 10'000 ? 8 : 7;
    return systemFont(size, QFont::Normal);
}

QRectF rowOf(const QRectF &rect)
{
    return rect.adjusted(sideMargin, 1, -sideMargin, -1);
}

/// The part of \a row that is left for the title of its service item or slide.
QRectF titleBox(const QRectF &row, const QModelIndex &index)
{
    if (index.data(RundownModel::isServiceItemRole).toBool())
        return row.adjusted(itemTitleLeft, 0, -RundownRowDelegate::itemButtonsWidth, 0);
    const double badge = index.data(RundownModel::isLiveRole).toBool()
        ? Badge{.text = QStringLiteral("LIVE"), .color = {}}.size().width() + gap
        : 0;
    return row.adjusted(thumbnailLeft + SlideThumbnails::size.width() + gap + 2, 0, -gap - badge,
                        0);
}

/// Null for a service item's row.
const Slide *slideOf(const QModelIndex &index)
{
    const auto *model = qobject_cast<const RundownModel *>(index.model());
    return model ? model->slideAt(index) : nullptr;
}

/// The number of slides in the service item that a row is of; 0 for a slide's row.
qsizetype slidesBelow(const QModelIndex &index)
{
    const auto *model = qobject_cast<const RundownModel *>(index.model());
    const ServiceItem *item = model ? model->serviceItemAt(index) : nullptr;
    return item ? item->slides.size() : 0;
}

QRectF thumbnailBox(const QRectF &row)
{
    const QSizeF size = SlideThumbnails::size;
    return {QPointF(row.left() + thumbnailLeft, row.top() + (row.height() - size.height()) / 2),
            size};
}

/// Draws the sign that there is a notice of a text into the corner of a thumbnail.
void drawWarning(QPainter &painter, const QRectF &thumbnail, const ZelvoTheme &theme)
{
    const QRectF plate(thumbnail.right() - warningPlate - 1, thumbnail.bottom() - warningPlate - 1,
                       warningPlate, warningPlate);
    fillRoundedRect(painter, plate, thumbnailRadius - 1, theme.panelBackground);
    const int margin = (warningPlate - warningSize) / 2;
    paintSymbol(painter, plate.toRect().adjusted(margin, margin, -margin, -margin),
                QLatin1String(textNoticeSymbol), theme.warning);
}

QPainterPath shapeOf(const QRectF &row)
{
    return continuousRoundedRect(row.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius);
}

/// Fills a row that is selected or under the pointer.
void fillRow(QPainter &painter, const QPainterPath &shape, bool isSelected,
             const QStyleOptionViewItem &option, const ZelvoTheme &theme)
{
    if (isSelected) {
        fillInBands(painter, shape, theme.selection);
    } else if (option.state & QStyle::State_MouseOver) {
        fillInBands(painter, shape, theme.panelSecondaryBackground);
    }
}

/// Draws the mark of the row that goes live next.
void drawPointer(QPainter &painter, const QPointF &leftMiddle, const QColor &color)
{
    QPainterPath triangle(leftMiddle - QPointF(0, pointerSize / 2));
    triangle.lineTo(leftMiddle + QPointF(pointerSize * 0.85, 0));
    triangle.lineTo(leftMiddle + QPointF(0, pointerSize / 2));
    triangle.closeSubpath();
    painter.fillPath(triangle, color);
}

void drawThumbnail(QPainter &painter, const QPixmap &thumbnail, const QRectF &box,
                   const ZelvoTheme &theme)
{
    const QPainterPath shape = continuousRoundedRect(box, thumbnailRadius);
    painter.save();
    painter.setClipPath(shape);
    if (thumbnail.isNull()) {
        painter.fillRect(box, theme.canvasBackground);
    } else {
        painter.drawPixmap(box.topLeft(), thumbnail);
    }
    painter.restore();
    painter.strokePath(
        continuousRoundedRect(box.adjusted(-0.5, -0.5, 0.5, 0.5), thumbnailRadius + 0.5),
        QPen(theme.border, 1));
}

} // namespace

QRect RundownRowDelegate::frameOf(const QRect &rect)
{
    return rect.isEmpty() ? QRect() : rowOf(rect).toRect();
}

RundownRowDelegate::RundownRowDelegate(SlideThumbnails &thumbnails, QObject *parent)
    : QStyledItemDelegate(parent), m_thumbnails(thumbnails)
{}

void RundownRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (index.data(RundownModel::isServiceItemRole).toBool()) {
        paintItem(*painter, option, index);
    } else {
        paintSlide(*painter, option, index);
    }
    painter->restore();
}

void RundownRowDelegate::paintItem(QPainter &painter, const QStyleOptionViewItem &option,
                                   const QModelIndex &index) const
{
    const ZelvoTheme &theme = ZelvoTheme::current(colorSchemeOf(option.palette));
    const QRectF row = rowOf(option.rect);
    const bool isSelected = index.data(RundownModel::isSelectedRole).toBool();
    fillRow(painter, shapeOf(row), isSelected, option, theme);
    const QRect symbol(int(row.left() + itemSymbolLeft), int(row.center().y()) - symbolSize / 2,
                       symbolSize, symbolSize);
    paintSymbol(painter, symbol, index.data(RundownModel::symbolRole).toString(), theme.accent);
    drawElidedText(painter, index.data(Qt::DisplayRole).toString(), itemFont(),
                   isSelected ? theme.primaryText : theme.secondaryText, titleBox(row, index));
}

void RundownRowDelegate::paintSlide(QPainter &painter, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    const ZelvoTheme &theme = ZelvoTheme::current(colorSchemeOf(option.palette));
    const QRectF row = rowOf(option.rect);
    const bool isSelected = index.data(RundownModel::isSelectedRole).toBool();
    const bool isQueued = index.data(RundownModel::isQueuedRole).toBool();
    const QPainterPath shape = shapeOf(row);
    fillRow(painter, shape, isSelected, option, theme);
    if (isQueued) {
        paintInBands(painter, row, 6, [&] { painter.strokePath(shape, QPen(theme.accent, 1)); });
        drawPointer(painter, {row.left() + pointerLeft, row.center().y()}, theme.accent);
    }

    const int number = index.data(RundownModel::numberRole).toInt();
    drawElidedText(painter, QString::number(number), numberFont(number), theme.secondaryText,
                   {row.left() + numberLeft, row.top(), numberRight - numberLeft, row.height()},
                   Qt::AlignRight);
    if (const Slide *slide = slideOf(index)) {
        const QRectF thumbnail = thumbnailBox(row);
        drawThumbnail(painter,
                      m_thumbnails.thumbnail(*slide, painter.device()->devicePixelRatioF()),
                      thumbnail, theme);
        if (!m_thumbnails.notice(*slide).isEmpty())
            drawWarning(painter, thumbnail, theme);
    }
    const QRectF title = titleBox(row, index);
    if (index.data(RundownModel::isLiveRole).toBool()) {
        const auto mode = index.data(RundownModel::outputModeRole).value<OutputMode>();
        const Badge badge{.text = QStringLiteral("LIVE"), .color = colorOf(mode, theme)};
        badge.paint(painter, {title.right() + gap, row.center().y() - badge.size().height() / 2});
    }
    drawElidedText(painter, index.data(Qt::DisplayRole).toString(), titleFont(), theme.primaryText,
                   title);
}

QPixmap RundownRowDelegate::pictureOf(const QModelIndex &index, const QWidget &viewport,
                                      const QSize &size) const
{
    const ZelvoTheme &theme = themeOf(viewport);
    const qsizetype slides = slidesBelow(index);
    const double dpr = viewport.devicePixelRatioF();
    QPixmap picture(((size + QSize(0, slides > 0 ? cardOffset : 0)) * dpr));
    picture.setDevicePixelRatio(dpr);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QStyleOptionViewItem option;
    option.initFrom(&viewport);
    option.state &= ~QStyle::State_MouseOver;
    option.rect = QRect(QPoint(), size);
    const QRectF row = rowOf(option.rect);
    const auto paintCard = [&](const QRectF &card) {
        painter.fillPath(shapeOf(card), theme.controlBackground);
        painter.strokePath(shapeOf(card), QPen(theme.mutedText, 1));
    };
    if (slides > 0)
        paintCard(row.adjusted(cardOffset, cardOffset, -cardOffset, cardOffset));
    paintCard(row);
    paint(&painter, option, index);
    if (index.data(RundownModel::isServiceItemRole).toBool()) {
        drawElidedText(painter,
                       slides == 1 ? QStringLiteral("1 slide")
                                   : QStringLiteral("%1 slides").arg(slides),
                       titleFont(), theme.secondaryText,
                       row.adjusted(row.width() - itemButtonsWidth, 0, -gap, 0), Qt::AlignRight);
    }
    return picture;
}

QSize RundownRowDelegate::sizeHint(const QStyleOptionViewItem &option,
                                   const QModelIndex &index) const
{
    return {option.rect.width(),
            index.data(RundownModel::isServiceItemRole).toBool() ? itemRowHeight : slideRowHeight};
}

QWidget *RundownRowDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/,
                                          const QModelIndex &index) const
{
    auto *field = new QLineEdit(parent);
    const bool isSection = index.data(RundownModel::isServiceItemRole).toBool();
    field->setObjectName(isSection ? QStringLiteral("sectionTitle") : QStringLiteral("slideTitle"));
    field->setAccessibleName(isSection ? QStringLiteral("Section Title")
                                       : QStringLiteral("Slide Title"));
    field->setMaxLength(longestLine);
    // A save and an undo take what is typed while the field goes on being edited.
    auto *self = const_cast<RundownRowDelegate *>(this); // which Qt has make editors as const
    connect(field, &QLineEdit::editingFinished, self, [self, field] {
        if (field->hasFocus()) // when it is left, the view itself commits or has dropped it
            self->commitData(field);
    });
    return field;
}

/// Leaves what has been typed alone when the row changes meanwhile.
void RundownRowDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *field = qobject_cast<QLineEdit *>(editor);
    if (!field->isModified())
        showLine(*field, index.data(Qt::EditRole).toString());
}

void RundownRowDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                      const QModelIndex &index) const
{
    if (!qobject_cast<QLineEdit *>(editor)->isReadOnly())
        QStyledItemDelegate::setModelData(editor, model, index);
}

/// The text stands where the title is painted.
void RundownRowDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                              const QModelIndex &index) const
{
    constexpr int frame = 5;
    constexpr int verticalMargin = 4;
    const QRectF row = rowOf(option.rect);
    const double height = std::min(row.height(), itemRowHeight - 2.0) - 2 * verticalMargin;
    QRectF box = titleBox(row, index).adjusted(-frame, 0, 0, 0);
    box.setHeight(height);
    box.moveTop(row.center().y() - height / 2);
    editor->setGeometry(box.toRect());
}

/// Shows a tooltip for a title that is cut short in its row, and the notice of a slide's texts.
bool RundownRowDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                   const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const Slide *slide = slideOf(index);
    const QString notice = slide ? m_thumbnails.notice(*slide) : QString();
    if (event->type() == QEvent::ToolTip && !notice.isEmpty()
        && thumbnailBox(rowOf(option.rect)).contains(event->pos())) {
        QToolTip::showText(event->globalPos(), plainToolTip(notice), view);
        return true;
    }
    const QFont font =
        index.data(RundownModel::isServiceItemRole).toBool() ? itemFont() : titleFont();
    const QString title = index.data(Qt::DisplayRole).toString();
    const bool isElided = elidedText(title, QFontMetricsF(font), Qt::ElideRight,
                                     titleBox(rowOf(option.rect), index).width())
        != title.simplified();
    if (event->type() != QEvent::ToolTip || !index.isValid() || isElided)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::hideText();
    return true;
}

} // namespace quenara
