#include "RundownList.h"

#include "CommandActions.h"
#include "CommandButton.h"
#include "RundownModel.h"
#include "RundownRowDelegate.h"
#include "ThemeColors.h"
#include "WorkspaceStore.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPaintEvent>
#include <QPainter>
#include <QWheelEvent>

namespace quenara {

namespace {

constexpr int buttonMargin = 8;

} // namespace

RundownList::RundownList(WorkspaceStore &store, const CommandActions &commands,
                         RenderCaches &caches, QWidget *parent)
    : QListView(parent), m_store(store), m_commands(commands), m_thumbnails(caches),
      m_model(new RundownModel(store, this))
{
    setObjectName(QStringLiteral("rundownList"));
    setAccessibleName(QStringLiteral("Rundown"));
    setFocusPolicy(Qt::ClickFocus);
    setModel(m_model);
    setItemDelegate(new RundownRowDelegate(m_thumbnails, this));
    setSelectionMode(NoSelection);
    setEditTriggers(NoEditTriggers);
    setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    connect(this, &QListView::clicked, this, &RundownList::choose);
    connect(&store, &WorkspaceStore::changed, this, &RundownList::followStore);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent); // else it would be painted whole to scroll
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

/// Brings into sight what an operation has selected or moved, and leaves the list where it was
/// scrolled to by whatever does neither.
void RundownList::followStore()
{
    const QModelIndex row = affectedRow();
    if (row != m_followed || row.row() != m_followedRow) {
        m_followed = row;
        m_followedRow = row.row();
        scrollTo(row);
    }
    placeSectionButtons();
}

/// A row keeps its height whatever it shows: a list view would ask all of them for theirs.
void RundownList::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                              const QList<int> &roles)
{
    QAbstractItemView::dataChanged( // NOLINT(bugprone-parent-virtual-call): which is the point
        topLeft, bottomRight, roles);
}

void RundownList::keyPressEvent(QKeyEvent *event)
{
    event->ignore();
}

void RundownList::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isByKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = isByKeyboard ? affectedRow() : indexAt(event->pos());
    if (!m_model->slideAt(index))
        return;
    const QString id = index.data(RundownModel::idRole).toString();
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](Command command, const auto &pick) {
        QAction *action = m_commands.action(command);
        menu->addAction(action->text(), action, [pick, action] {
            pick();
            action->trigger();
        });
    };
    add(Command::goLive, [this, id] { m_store.queueSlide(id); });
    add(Command::duplicateSlide, [this, id] { m_store.selectSlide(id, true); });
    add(Command::deleteSlide, [this, id] { m_store.selectSlide(id, true); });
    menu->popup(isByKeyboard ? viewport()->mapToGlobal(visualRect(index).center())
                             : event->globalPos());
}

/// Row by row: a list view would paint all that lie between two that changed.
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
    if (m_buttonsArea) {
        // Pixels that stay in sight are moved, not painted again, where nothing lies over them.
        constexpr QRect nowhere(-1, -1, 1, 1);
        viewport()->update(m_buttonsArea->mask());
        m_buttonsArea->setMask(nowhere);
    }
    QListView::scrollContentsBy(dx, dy);
    placeSectionButtons();
}

void RundownList::updateGeometries()
{
    QListView::updateGeometries();
    placeSectionButtons();
}

/// From the top down, those that lie at least in part on an \a area of the viewport.
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

SymbolButton *RundownList::makeMoveButton(qsizetype position, Command command)
{
    QAction *move = m_commands.action(command);
    auto *button = new SymbolButton(symbolOf(*move), move->iconText(), SymbolButton::Look::icon,
                                    m_buttonsArea);
    button->setIconSize({12, 12});
    connect(button, &SymbolButton::clicked, this, [this, position, move] {
        m_store.selectServiceItem(m_sectionButtons.at(position).itemID);
        move->trigger();
    });
    return button;
}

RundownList::SectionButtons &RundownList::sectionButtons(qsizetype position)
{
    if (position == m_sectionButtons.size()) {
        SymbolButton *up = makeMoveButton(position, Command::moveSectionUp);
        SymbolButton *down = makeMoveButton(position, Command::moveSectionDown);
        setTabOrder(
            position == 0 ? static_cast<QWidget *>(this) : m_sectionButtons.constLast().down, up);
        setTabOrder(up, down);
        m_sectionButtons.append({up, down, {}});
    }
    return m_sectionButtons[position];
}

void RundownList::placeSectionButtons()
{
    if (!parentWidget())
        return;
    if (!m_buttonsArea) {
        // Beside the list, not in it: what a list tells a screen reader of are its rows alone.
        m_buttonsArea = new QWidget(parentWidget());
        m_buttonsArea->installEventFilter(this);
    }
    qsizetype used = 0;
    QRegion covered;
    for (const QModelIndex &index : rowsIn(viewport()->rect())) {
        if (!index.data(RundownModel::isServiceItemRole).toBool())
            continue;
        const QRect row = visualRect(index);
        SectionButtons &buttons = sectionButtons(used++);
        buttons.itemID = index.data(RundownModel::idRole).toString();
        int right = row.right() + 1 - buttonMargin;
        for (SymbolButton *button : {buttons.down, buttons.up}) {
            const QSize size = button->sizeHint();
            right -= size.width();
            button->setGeometry({{right, row.center().y() - size.height() / 2 + 1}, size});
            button->setAccessibleDescription(index.data(Qt::DisplayRole).toString());
            button->show();
            covered += button->geometry();
        }
    }
    for (qsizetype i = used; i < m_sectionButtons.size(); ++i) {
        m_sectionButtons.at(i).up->hide();
        m_sectionButtons.at(i).down->hide();
    }
    m_buttonsArea->setGeometry(
        {viewport()->mapTo(parentWidget(), QPoint(0, 0)), viewport()->size()});
    m_buttonsArea->setMask(covered);
    m_buttonsArea->setVisible(used > 0);
    m_buttonsArea->raise();
}

bool RundownList::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_buttonsArea && event->type() == QEvent::Wheel) {
        wheelEvent(static_cast<QWheelEvent *>(event));
        return true;
    }
    return QListView::eventFilter(watched, event);
}

} // namespace quenara
