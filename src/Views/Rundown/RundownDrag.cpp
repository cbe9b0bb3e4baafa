#include "RundownDrag.h"

#include "RundownModel.h"
#include "RundownRowDelegate.h"
#include "ThemeColors.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListView>
#include <QPainter>
#include <QScrollBar>
#include <QTimerEvent>

#include <algorithm>

namespace quenara {

namespace {

// Points
constexpr int lineWidth = 2;
constexpr int knobSize = 8; ///< of the ring at the left end of the line
constexpr int slideIndent = 8; ///< of the line for a slide, which lies within a section
constexpr int scrollZone = 36; ///< at the upper and the lower edge
constexpr int scrollAtEdge = 12; ///< in one step, with the pointer on the very edge
constexpr int fastestScroll = 160; ///< in one step, with the pointer far beyond
constexpr int scrollInterval = 16; // ms

constexpr float veilOpacity = 0.6F; ///< over the rows that are dragged away

bool isEscape(const QEvent &event)
{
    const bool isKey = event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride;
    return isKey && static_cast<const QKeyEvent &>(event).key() == Qt::Key_Escape;
}

bool isPopup(const QObject &object)
{
    return object.isWidgetType() && static_cast<const QWidget &>(object).windowType() == Qt::Popup;
}

} // namespace

RundownDrag::RundownDrag(RundownModel &model, QListView &list)
    : QObject(&list), m_model(model), m_list(list)
{}

void RundownDrag::press(const QPoint &point)
{
    end();
    const QModelIndex index = m_list.indexAt(point);
    if (!index.isValid())
        return;
    m_stage = Stage::pressed;
    m_id = index.data(RundownModel::idRole).toString();
    m_isSection = index.data(RundownModel::isServiceItemRole).toBool();
    m_pressedAt = point;
    m_grip = point.y() - m_list.visualRect(index).top();
}

void RundownDrag::moveTo(const QPoint &point)
{
    m_pointer = point;
    const bool isFarEnough =
        (point - m_pressedAt).manhattanLength() >= QApplication::startDragDistance();
    if (m_stage == Stage::pressed && isFarEnough)
        begin();
    if (isDragging())
        showPlace();
}

void RundownDrag::begin()
{
    const QModelIndex index = row();
    const auto *delegate = qobject_cast<const RundownRowDelegate *>(m_list.itemDelegate());
    if (!index.isValid() || !delegate)
        return;
    m_stage = Stage::dragging;
    m_picture = delegate->pictureOf(index, *m_list.viewport(), m_list.visualRect(index).size());
    m_list.viewport()->setCursor(Qt::ClosedHandCursor);
    qApp->installEventFilter(this);
    emit began();
    m_list.viewport()->update();
}

QModelIndex RundownDrag::drop()
{
    const std::optional<int> gap = isDragging() ? m_gap : std::nullopt;
    end();
    if (!gap)
        return {};
    m_model.move(row(), *gap);
    return row();
}

void RundownDrag::cancel()
{
    if (!isPressed())
        return;
    const bool wasDragging = isDragging();
    m_stage = Stage::cancelled;
    m_gap.reset();
    m_picture = {};
    m_scrolling.stop();
    if (!wasDragging)
        return;
    qApp->removeEventFilter(this);
    m_list.viewport()->unsetCursor();
    m_list.viewport()->update();
    emit ended();
}

void RundownDrag::end()
{
    cancel();
    m_stage = Stage::none;
}

void RundownDrag::follow()
{
    if (!isDragging())
        return;
    if (!row().isValid())
        return cancel();
    showPlace();
    m_list.viewport()->update();
}

/// Takes the picture and the line to the pointer, and scrolls while that is at an edge.
void RundownDrag::showPlace()
{
    QWidget &viewport = *m_list.viewport();
    viewport.update(lineRect());
    viewport.update(m_shownPicture);
    m_gap = gapAtPointer();
    m_shownPicture = pictureRect();
    viewport.update(lineRect());
    viewport.update(m_shownPicture);
    if (scrollStep() == 0) {
        m_scrolling.stop();
    } else if (!m_scrolling.isActive()) {
        m_scrolling.start(scrollInterval, this);
    }
}

void RundownDrag::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_scrolling.timerId())
        return QObject::timerEvent(event);
    QScrollBar *bar = m_list.verticalScrollBar();
    bar->setValue(bar->value() + scrollStep());
}

/// How far to scroll at once: the faster the nearer the pointer comes to an edge and the farther it
/// goes beyond, so that the other end of a long rundown is in reach; 0 elsewhere.
int RundownDrag::scrollStep() const
{
    const QRect area = m_list.viewport()->rect();
    if (m_pointer.x() < area.left() || m_pointer.x() > area.right())
        return 0;
    const int zone = std::min(scrollZone, area.height() / 3);
    const int above = area.top() + zone - m_pointer.y();
    const int below = m_pointer.y() - (area.bottom() - zone);
    const auto step = [zone](int depth) {
        const double zones = double(depth) / std::max(zone, 1);
        return int(std::clamp(zones * zones * scrollAtEdge, 1.0, double(fastestScroll)));
    };
    return above > 0 ? -step(above) : below > 0 ? step(below) : 0;
}

/// The row that the dragged one would land before: a slide between the two rows nearest to the
/// pointer, a section before or after the nearer half of another one. None beside the list, or
/// where nothing would move.
std::optional<int> RundownDrag::gapAtPointer() const
{
    const QRect area = m_list.viewport()->rect();
    if (m_pointer.x() < area.left() || m_pointer.x() > area.right())
        return std::nullopt;
    const int y = std::clamp(m_pointer.y(), area.top(), area.bottom());
    const QModelIndex at = m_list.indexAt({area.center().x(), y});
    int gap = m_model.rowCount();
    if (at.isValid()) {
        const QModelIndex first = m_isSection ? m_model.sectionOf(at) : at;
        const QModelIndex last = m_isSection ? m_model.endOfSection(at) : at;
        const QRect block = m_list.visualRect(first) | m_list.visualRect(last);
        gap = y < block.center().y() ? first.row() : last.row() + 1;
    }
    if (!m_isSection)
        gap = std::max(gap, 1); // a slide comes after the title of the first section
    return m_model.canMove(row(), gap) ? std::optional(gap) : std::nullopt;
}

QModelIndex RundownDrag::row() const
{
    return m_isSection ? m_model.indexOfServiceItem(m_id) : m_model.indexOfSlide(m_id);
}

QRect RundownDrag::pictureRect() const
{
    const QSize size = m_picture.deviceIndependentSize().toSize();
    const int lowest = m_list.viewport()->height() - size.height();
    return {{0, std::clamp(m_pointer.y() - m_grip, std::min(0, lowest), std::max(0, lowest))},
            size};
}

/// Of the line with its knob; empty without one.
QRect RundownDrag::lineRect() const
{
    if (!m_gap)
        return {};
    const QWidget &viewport = *m_list.viewport();
    const bool isEnd = *m_gap == m_model.rowCount();
    const QRect beside = m_list.visualRect(m_model.index(isEnd ? *m_gap - 1 : *m_gap));
    const QRect frame = RundownRowDelegate::frameOf(beside);
    const int y = std::clamp(isEnd ? beside.bottom() + 1 : beside.top(), knobSize / 2,
                             std::max(knobSize / 2, viewport.height() - knobSize / 2));
    const int left = frame.left() + (m_isSection ? 0 : slideIndent);
    return {left - knobSize / 2, y - knobSize / 2, frame.right() + 1 - left + knobSize / 2,
            knobSize};
}

/// Of the rows that are dragged.
QRect RundownDrag::rowsRect() const
{
    const QModelIndex first = row();
    return m_list.visualRect(first)
        | m_list.visualRect(m_isSection ? m_model.endOfSection(first) : first);
}

void RundownDrag::paint(QPainter &painter) const
{
    if (!isDragging())
        return;
    const ZelvoTheme &theme = themeOf(m_list);
    QColor veil = theme.panelBackground;
    veil.setAlphaF(veilOpacity);
    painter.fillRect(rowsRect(), veil);
    painter.drawPixmap(pictureRect().topLeft(), m_picture);
    if (!m_gap)
        return;
    const QRectF line = lineRect();
    const QRectF knob(line.topLeft(), QSizeF(knobSize, knobSize));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRectF(knob.right(), line.center().y() - lineWidth / 2.0,
                            line.right() - knob.right(), lineWidth),
                     theme.accent);
    painter.setPen(QPen(theme.accent, lineWidth));
    painter.setBrush(theme.panelBackground);
    painter.drawEllipse(knob.adjusted(1, 1, -1, -1));
}

/// Sees what ends a drag, and Escape before anybody else, wherever the keyboard is.
bool RundownDrag::eventFilter(QObject *watched, QEvent *event)
{
    if (isEscape(*event)) {
        event->accept();
        if (event->type() == QEvent::KeyPress)
            cancel();
        return true;
    }
    const bool isOfWindow = watched == m_list.window();
    switch (event->type()) {
    case QEvent::WindowBlocked:
    case QEvent::WindowDeactivate:
        if (isOfWindow)
            cancel();
        break;
    case QEvent::Hide:
        if (isOfWindow || watched == &m_list)
            cancel();
        break;
    case QEvent::Show:
        if (isPopup(*watched))
            cancel();
        break;
    default:
        break;
    }
    return false;
}

} // namespace quenara
