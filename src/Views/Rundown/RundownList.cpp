#include "RundownList.h"

#include "FocusRing.h"
#include "RundownDrag.h"
#include "RundownModel.h"
#include "RundownRowDelegate.h"
#include "SectionMenu.h"
#include "SlideMenu.h"
#include "ThemeColors.h"
#include "WorkspaceStore.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPaintEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace quenara {

namespace {

constexpr int rowsAhead = 2; ///< in sight beyond the live row, in the direction that it moves

} // namespace

RundownList::RundownList(WorkspaceStore &store, const CommandActions &commands,
                         RenderCaches &caches, QWidget *parent)
    : PressableList(parent), m_store(store), m_commands(commands), m_thumbnails(caches),
      m_model(new RundownModel(store, this)), m_drag(new RundownDrag(*m_model, *this))
{
    setObjectName(QStringLiteral("rundownList"));
    setAccessibleName(QStringLiteral("Rundown"));
    setFocusPolicy(Qt::StrongFocus);
    setModel(m_model);
    setItemDelegate(new RundownRowDelegate(m_thumbnails, this));
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setAutoScroll(false); // it is followStore() that scrolls
    setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    connect(this, &QListView::clicked, this, &RundownList::choose);
    connect(this, &RundownList::rowsPlaced, this, &RundownList::showFocus);
    connect(this, &RundownList::rowsPlaced, m_drag, &RundownDrag::follow);
    connect(m_drag, &RundownDrag::began, this, [this] {
        endHold();
        goTo(m_rowBeforePress.isValid() ? QModelIndex(m_rowBeforePress) : affectedRow());
        emit rowsPlaced();
    });
    connect(m_drag, &RundownDrag::ended, this, &RundownList::rowsPlaced);
    connect(&store, &WorkspaceStore::changed, this, &RundownList::followStore);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent); // so that scrolling moves what is painted
    followStore();
}

void RundownList::choose(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    const QString id = index.data(RundownModel::idRole).toString();
    if (index.data(RundownModel::isServiceItemRole).toBool()) {
        m_store.selectServiceItem(id);
    } else {
        m_store.selectSlide(id, true);
    }
}

bool RundownList::isChosen(const QModelIndex &index) const
{
    return index.data(RundownModel::isSelectedRole).toBool();
}

QModelIndex RundownList::affectedRow() const
{
    const QModelIndex slide = m_model->indexOfSlide(m_store.selectedSlideID());
    return slide.isValid() ? slide : m_model->indexOfServiceItem(m_store.selectedServiceItemID());
}

/// Brings into sight what an operation has selected, moved or sent live. Any other change leaves
/// the list where it was scrolled to.
void RundownList::followStore()
{
    if (m_projectID != m_store.project().id) {
        m_projectID = m_store.project().id;
        m_thumbnails.clear(); // a project that has been closed takes no memory
    }
    executeDelayedItemsLayout(); // rows that have come or gone move the others
    followSelection();
    followLive();
    m_hasNewSection = false;
    emit rowsPlaced();
}

void RundownList::followSelection()
{
    const QModelIndex row = affectedRow();
    const bool isSame = row == m_followed && row.row() == m_followedRow;
    m_followed = row;
    m_followedRow = row.row();
    if (!isSame)
        goTo(row);
    if (isSame || m_isHolding || isDragging())
        return;
    endHold();
    // A section that comes with its slides, as an imported song does, is shown as far as it fits.
    if (m_hasNewSection)
        showRows(m_model->sectionOf(row), m_model->endOfSection(row), Qt::TopEdge);
    showRows(row, row, Qt::TopEdge);
}

/// Keeps in sight what comes next: going down, the two rows after the live one; going up, those
/// before it, or all from the title of its section if there is room for that, as in a document
/// that has just been opened.
void RundownList::followLive()
{
    const std::optional<QString> id = m_store.liveSlideID();
    const QModelIndex live = m_model->indexOfSlide(id);
    const QModelIndex before = m_model->indexOfSlide(std::exchange(m_liveID, id));
    if (live == before || !live.isValid() || m_isHolding || isDragging())
        return;
    const QModelIndex last = comesNextAfter(live);
    if (before.isValid() && live.row() > before.row())
        return showRows(live, last, Qt::TopEdge);
    QModelIndex first = m_model->index(std::max(live.row() - rowsAhead, 0));
    const QModelIndex section = m_model->sectionOf(live);
    if (section.row() < first.row() && fitsFrom(section, live))
        first = section;
    showRows(first, last, Qt::TopEdge);
    showRows(first, live, Qt::BottomEdge);
}

/// The last of the rows that are kept in sight below the live one.
QModelIndex RundownList::comesNextAfter(const QModelIndex &live) const
{
    return m_model->index(std::min(live.row() + rowsAhead, m_model->rowCount() - 1));
}

/// Whether there is room for all rows from \a first to \a last.
bool RundownList::fitsFrom(const QModelIndex &first, const QModelIndex &last) const
{
    return visualRect(last).bottom() + 1 - visualRect(first).top() <= viewport()->height();
}

/// Scrolls no further than it takes to show the rows from \a first to \a last; where they do not
/// all fit, as many as do at one edge.
void RundownList::showRows(const QModelIndex &first, const QModelIndex &last, Qt::Edge edge)
{
    if (!first.isValid() || !last.isValid())
        return;
    const int height = viewport()->height();
    int top = visualRect(first).top();
    int bottom = visualRect(last).bottom() + 1;
    if (edge == Qt::TopEdge) {
        bottom = std::min(bottom, top + height);
    } else {
        top = std::max(top, bottom - height);
    }
    const int distance = top < 0 ? top : std::max(0, bottom - height);
    verticalScrollBar()->setValue(verticalScrollBar()->value() + distance);
}

void RundownList::hold(const QString &sectionID, const std::function<void()> &move)
{
    const int before = visualRect(m_model->indexOfServiceItem(sectionID)).top();
    m_isHolding = true;
    move();
    m_isHolding = false;
    const QModelIndex section = m_model->indexOfServiceItem(sectionID);
    if (!section.isValid())
        return;
    // The bar must neither come nor go, which would lay the list out again and again.
    setVerticalScrollBarPolicy(verticalScrollBar()->isVisible() ? Qt::ScrollBarAlwaysOn
                                                                : Qt::ScrollBarAlwaysOff);
    m_heldPlace = verticalScrollBar()->value() + visualRect(section).top() - before;
    updateGeometries();
}

void RundownList::endHold()
{
    if (!m_heldPlace)
        return;
    m_heldPlace.reset();
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    updateGeometries();
}

/// Has the focus ring lie on the row that the keyboard is at, as far as that is in sight.
void RundownList::showFocus()
{
    constexpr int inset = focusRingDistance;
    const QRect room = viewport()->rect().adjusted(inset, inset, -inset, -inset);
    const QRect row = RundownRowDelegate::frameOf(visualRect(currentIndex()));
    setFocusArea(*this, (row & room).translated(viewport()->pos()));
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

/// Qt would tell assistive technologies that the row has the keyboard, wherever that is.
void RundownList::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QAbstractItemView::currentChanged( // NOLINT(bugprone-parent-virtual-call): which is the point
        current, previous);
    tellOfFocus();
}

void RundownList::focusInEvent(QFocusEvent *event)
{
    QListView::focusInEvent(event);
    // After Qt has told that the list has the keyboard.
    QMetaObject::invokeMethod(this, &RundownList::tellOfFocus, Qt::QueuedConnection);
}

/// Tells assistive technologies which row the keyboard is at, if it is in the list.
void RundownList::tellOfFocus()
{
    if (!hasFocus() || !currentIndex().isValid())
        return;
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(currentIndex().row());
    QAccessible::updateAccessibility(&event);
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
    // What the field of a title does not take, and what would change what is being dragged.
    if (state() == EditingState || isDragging())
        return event->ignore();
    if (event->key() == Qt::Key_F2 && event->modifiers() == Qt::NoModifier)
        return rename(currentIndex());
    const std::optional<int> row = rowFor(*event);
    if (!row)
        return event->ignore();
    const QModelIndex index = m_model->index(std::clamp(*row, 0, m_model->rowCount() - 1));
    if (index.isValid()) {
        choose(index);
        goTo(index);
        scrollTo(index);
        showFocus();
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

/// Has the title of a row typed where it stands.
void RundownList::rename(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    scrollTo(index);
    edit(index);
}

bool RundownList::isDragging() const
{
    return m_drag->isDragging();
}

/// Has the keyboard be at \a row, which selects nothing.
void RundownList::goTo(const QModelIndex &row)
{
    selectionModel()->setCurrentIndex(row, QItemSelectionModel::NoUpdate);
}

void RundownList::mousePressEvent(QMouseEvent *event)
{
    if (m_drag->isPressed() && event->button() != Qt::LeftButton)
        return m_drag->cancel();
    m_rowBeforePress = currentIndex();
    QListView::mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        m_drag->press(event->pos());
}

/// Qt would have the pointer select the rows that it goes over while the button is down.
void RundownList::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        return m_drag->moveTo(event->pos());
    m_drag->end(); // nobody has told of the release
    QListView::mouseMoveEvent(event);
}

/// A row that has been dragged was not clicked.
void RundownList::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return QListView::mouseReleaseEvent(event);
    const bool isClick = !isDragging() && !m_drag->isCancelled();
    if (isDragging()) {
        drop();
    } else {
        m_drag->end();
    }
    if (isClick)
        QListView::mouseReleaseEvent(event);
}

/// Moves what is dragged, which selects nothing. What has come to lie there stays in sight.
void RundownList::drop()
{
    const auto idOf = [](const QModelIndex &row) {
        return std::optional(row.data(RundownModel::idRole).toString());
    };
    const auto rowWith = [this](const std::optional<QString> &id, bool isSection) {
        return isSection ? m_model->indexOfServiceItem(id) : m_model->indexOfSlide(id);
    };
    const std::optional<QString> id = idOf(currentIndex());
    const bool isSection = m_model->serviceItemAt(currentIndex());
    const int place = verticalScrollBar()->value();
    m_isHolding = true;
    const QModelIndex moved = m_drag->drop();
    m_isHolding = false;
    verticalScrollBar()->setValue(place);
    showRows(moved, moved, Qt::TopEdge);
    goTo(rowWith(id, isSection));
    showFocus();
}

void RundownList::mouseDoubleClickEvent(QMouseEvent *event)
{
    QListView::mouseDoubleClickEvent(event);
    const QModelIndex index = indexAt(event->pos());
    // Who clicks twice on a slide wants it queued.
    if (event->button() == Qt::LeftButton && m_model->serviceItemAt(index))
        rename(index);
}

/// Qt would have Tab move on to another row, which nobody has selected.
void RundownList::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    const bool movesOn = hint == QAbstractItemDelegate::EditNextItem
        || hint == QAbstractItemDelegate::EditPreviousItem;
    QListView::closeEditor(editor, movesOn ? QAbstractItemDelegate::NoHint : hint);
}

void RundownList::contextMenuEvent(QContextMenuEvent *event)
{
    if (m_drag->isPressed())
        return;
    if (event->reason() == QContextMenuEvent::Keyboard)
        return openMenu(currentIndex());
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid())
        makeMenu(index)->popup(event->globalPos());
}

void RundownList::openMenu(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    scrollTo(index);
    makeMenu(index)->popup(viewport()->mapToGlobal(visualRect(index).center()));
}

QMenu *RundownList::makeMenu(const QModelIndex &index)
{
    if (!m_model->serviceItemAt(index)) {
        return makeSlideMenu(m_store, m_commands, index.data(RundownModel::idRole).toString(),
                             this);
    }
    const QPersistentModelIndex row(index);
    return makeSectionMenu(
        {.store = m_store, .commands = m_commands, .model = *m_model}, index,
        [this, row] { rename(row); }, this);
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
    if (isDragging()) {
        QPainter painter(viewport());
        painter.setClipRegion(event->region());
        m_drag->paint(painter);
    }
    if (m_thumbnails.owesThumbnails())
        viewport()->update(event->rect());
}

/// Keeps the live row in sight when the window becomes lower: with the title of its section, if
/// there is room for that, and with as much as there is room for of what comes next.
void RundownList::resizeEvent(QResizeEvent *event)
{
    QListView::resizeEvent(event);
    const QModelIndex live = m_model->indexOfSlide(m_liveID);
    const bool wasInSight = QRect(QPoint(), event->oldSize()).contains(visualRect(live));
    if (!isVisible() || !wasInSight || m_heldPlace)
        return;
    const QModelIndex section = m_model->sectionOf(live);
    showRows(fitsFrom(section, live) ? section : live, comesNextAfter(live), Qt::TopEdge);
}

void RundownList::scrollContentsBy(int dx, int dy)
{
    emit aboutToScroll();
    if (m_heldPlace)
        m_heldPlace = verticalScrollBar()->value();
    QListView::scrollContentsBy(dx, dy);
    emit rowsPlaced();
}

void RundownList::updateGeometries()
{
    const std::optional<int> held = m_heldPlace;
    QListView::updateGeometries();
    if (held) {
        QScrollBar *bar = verticalScrollBar();
        bar->setRange(std::min(0, *held), std::max(bar->maximum(), *held));
        bar->setValue(*held);
        m_heldPlace = held;
    }
    emit rowsPlaced();
}

void RundownList::rowsInserted(const QModelIndex &parent, int first, int last)
{
    QListView::rowsInserted(parent, first, last);
    const QModelIndex added = m_model->index(first);
    m_hasNewSection = m_hasNewSection || m_model->sectionOf(added) == added
        || m_model->endOfSection(added).row() < last;
}

QModelIndexList RundownList::rowsIn(const QRect &area) const
{
    QModelIndexList rows;
    // A list that is held may begin below its top.
    const QModelIndex begin = m_model->index(0);
    const bool isAbove = begin.isValid() && area.top() < visualRect(begin).top();
    for (QModelIndex row = isAbove ? begin : indexAt(area.topLeft());
         row.isValid() && visualRect(row).top() <= area.bottom();
         row = m_model->index(row.row() + 1)) {
        rows.append(row);
    }
    return rows;
}

} // namespace quenara
