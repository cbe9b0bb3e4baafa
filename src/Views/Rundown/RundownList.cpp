#include "RundownList.h"

#include "RundownAccessible.h"
#include "RundownModel.h"
#include "RundownRowDelegate.h"
#include "SlideMenu.h"
#include "ThemeColors.h"
#include "WorkspaceStore.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace quenara {

RundownList::RundownList(WorkspaceStore &store, const CommandActions &commands,
                         RenderCaches &caches, QWidget *parent)
    : QListView(parent), m_store(store), m_commands(commands), m_thumbnails(caches),
      m_model(new RundownModel(store, this))
{
    setObjectName(QStringLiteral("rundownList"));
    makeRundownAccessible();
    setAccessibleName(QStringLiteral("Rundown"));
    setFocusPolicy(Qt::StrongFocus);
    setModel(m_model);
    setItemDelegate(new RundownRowDelegate(m_thumbnails, this));
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    connect(this, &QListView::clicked, this, &RundownList::choose);
    connect(&store, &WorkspaceStore::changed, this, &RundownList::followStore);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent); // so that scrolling moves what is painted
    followStore();
}

void RundownList::choose(const QModelIndex &index)
{
    const QString id = index.data(RundownModel::idRole).toString();
    if (index.data(RundownModel::isServiceItemRole).toBool()) {
        m_store.selectServiceItem(id);
    } else {
        m_store.selectSlide(id, true);
    }
}

QModelIndex RundownList::affectedRow() const
{
    const QModelIndex slide = m_model->indexOfSlide(m_store.selectedSlideID());
    return slide.isValid() ? slide : m_model->indexOfServiceItem(m_store.selectedServiceItemID());
}

/// Brings into sight the row that an operation has selected or moved. Any other change leaves the
/// list where it was scrolled to.
void RundownList::followStore()
{
    const QModelIndex row = affectedRow();
    if (row != m_followed || row.row() != m_followedRow) {
        m_followed = row;
        m_followedRow = row.row();
        selectionModel()->setCurrentIndex(row, QItemSelectionModel::NoUpdate);
        scrollTo(row);
    }
    emit rowsPlaced();
}

/// Leaves the layout alone, since no change of a row changes its height: QListView would ask all
/// rows for theirs.
void RundownList::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                              const QList<int> &roles)
{
    QAbstractItemView::dataChanged( // NOLINT(bugprone-parent-virtual-call): which is the point
        topLeft, bottomRight, roles);
    for (int row = topLeft.row(); QAccessible::isActive() && row <= bottomRight.row(); ++row)
        tellOf(row);
}

/// Tells assistive technologies that what is said of a row may have changed.
void RundownList::tellOf(int row)
{
    const bool isSelected = m_model->index(row).data(RundownModel::isSelectedRole).toBool();
    for (const QAccessible::Event kind :
         {QAccessible::NameChanged, QAccessible::DescriptionChanged,
          isSelected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove}) {
        QAccessibleEvent event(this, kind);
        event.setChild(row);
        QAccessible::updateAccessibility(&event);
    }
}

void RundownList::keyPressEvent(QKeyEvent *event)
{
    const std::optional<int> row = rowFor(*event);
    if (!row)
        return event->ignore();
    const QModelIndex index = m_model->index(std::clamp(*row, 0, m_model->rowCount() - 1));
    if (index.isValid()) {
        choose(index);
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        scrollTo(index);
    }
}

/// The row that a key selects, which may lie beyond the ends; nothing for a key that selects none.
std::optional<int> RundownList::rowFor(const QKeyEvent &event) const
{
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::ControlModifier)
        return std::nullopt;
    switch (event.key()) {
    case Qt::Key_Up:
        return currentIndex().row() - 1;
    case Qt::Key_Down:
        return currentIndex().row() + 1;
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return m_model->rowCount();
    case Qt::Key_Space:
        return currentIndex().row();
    default:
        return std::nullopt;
    }
}

void RundownList::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isByKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = isByKeyboard ? currentIndex() : indexAt(event->pos());
    if (!m_model->slideAt(index))
        return;
    QMenu *menu =
        makeSlideMenu(m_store, m_commands, index.data(RundownModel::idRole).toString(), this);
    menu->popup(isByKeyboard ? viewport()->mapToGlobal(visualRect(index).center())
                             : event->globalPos());
}

/// Paints row by row: QListView would paint all rows that lie between two that changed.
void RundownList::paintEvent(QPaintEvent *event)
{
    m_thumbnails.startMaking();
    QPainter(viewport()).fillRect(event->rect(), themeOf(*this).panelBackground);
    QRegion rows;
    for (const QRect &part : event->region()) {
        for (const QModelIndex &row : rowsIn(part))
            rows += visualRect(row);
    }
    for (const QRect &some : rows) {
        QPaintEvent ofRows(some);
        QListView::paintEvent(&ofRows);
    }
    if (m_thumbnails.owesThumbnails())
        viewport()->update(event->rect());
}

void RundownList::scrollContentsBy(int dx, int dy)
{
    emit aboutToScroll();
    QListView::scrollContentsBy(dx, dy);
    emit rowsPlaced();
}

void RundownList::updateGeometries()
{
    QListView::updateGeometries();
    emit rowsPlaced();
}

QModelIndexList RundownList::rowsIn(const QRect &area) const
{
    QModelIndexList rows;
    for (QModelIndex row = indexAt(area.topLeft());
         row.isValid() && visualRect(row).top() <= area.bottom();
         row = m_model->index(row.row() + 1)) {
        rows.append(row);
    }
    return rows;
}

} // namespace quenara
