#include "RundownModel.h"

#include "Identifier.h"
#include "PlainToolTip.h"
#include "RundownEdits.h"
#include "Show.h"
#include "WorkspaceStore.h"

#include <algorithm>
#include <array>

namespace quenara {

namespace {

struct TypeSymbol
{
    ServiceItemType type;
    const char *name;
};

constexpr auto symbols = std::to_array<TypeSymbol>({
    {ServiceItemType::welcome, "hand.wave"},
    {ServiceItemType::song, "music.note"},
    {ServiceItemType::scripture, "text.book.closed"},
    {ServiceItemType::message, "mic"},
    {ServiceItemType::announcement, "megaphone"},
    {ServiceItemType::closing, "figure.walk.departure"},
    {ServiceItemType::custom, "square.stack.3d.up"},
});
static_assert(entriesStandAtTheirCases(symbols, &TypeSymbol::type));

/// More rows than these that bear one mark are announced as one range, others one by one.
constexpr qsizetype mostRowsInTurn = 20;

/// False for lists that share their storage. What the lists hold is not compared.
bool mayDiffer(const QList<Slide> &a, const QList<Slide> &b)
{
    return a.constData() != b.constData() || a.size() != b.size();
}

} // namespace

RundownModel::RundownModel(WorkspaceStore &store, QObject *parent)
    : QAbstractListModel(parent), m_store(store), m_project(store.project()),
      m_rows(rowsOf(m_project)), m_marks(marks())
{
    hashIDs(0, int(m_rows.size()));
    connect(&store, &WorkspaceStore::projectChanged, this, &RundownModel::showProject);
    connect(&store, &WorkspaceStore::changed, this, &RundownModel::showMarks);
}

QList<RundownModel::Row> RundownModel::rowsOf(const ZelvoProject &project)
{
    QList<Row> rows;
    rows.reserve(project.serviceItems.size() + slideCount(project));
    for (int i = 0; i < int(project.serviceItems.size()); ++i) {
        rows.append({i, -1});
        for (int j = 0; j < int(project.serviceItems.at(i).slides.size()); ++j)
            rows.append({i, j});
    }
    return rows;
}

const QString &RundownModel::idOf(const ZelvoProject &project, const Row &row)
{
    const ServiceItem &item = project.serviceItems.at(row.item);
    return row.slide < 0 ? item.id : item.slides.at(row.slide).id;
}

const ServiceItem &RundownModel::itemOf(const Row &row) const
{
    return m_project.serviceItems.at(row.item);
}

const Slide &RundownModel::slideOf(const Row &row) const
{
    return itemOf(row).slides.at(row.slide);
}

/// Inserts the hashes of \a count rows that have come at \a first.
void RundownModel::hashIDs(int first, int count)
{
    m_idHashes.insert(first, count, 0);
    for (int row = first; row < first + count; ++row)
        m_idHashes[row] = qHash(idOf(m_project, m_rows.at(row)));
}

/// Keeps the rows that both projects begin and end with, removes and inserts those between.
void RundownModel::showProject()
{
    const ZelvoProject before = m_project;
    const QList<Row> oldRows = m_rows;
    const ZelvoProject &after = m_store.project();
    const QList<Row> newRows = rowsOf(after);
    const auto isSame = [&](const Row &was, const Row &is) {
        return (was.slide < 0) == (is.slide < 0)
            && isSameIdentifier(idOf(before, was), idOf(after, is));
    };
    const auto [oldMiddle, newMiddle] =
        std::mismatch(oldRows.cbegin(), oldRows.cend(), newRows.cbegin(), newRows.cend(), isSame);
    const auto common = std::min(oldRows.cend() - oldMiddle, newRows.cend() - newMiddle);
    const auto [oldTail, newTail] =
        std::mismatch(oldRows.crbegin(), oldRows.crbegin() + common, newRows.crbegin(), isSame);
    const int first = int(oldMiddle - oldRows.cbegin());
    const int removed = int(oldTail.base() - oldMiddle);
    const int added = int(newTail.base() - newMiddle);

    if (removed > 0) {
        beginRemoveRows({}, first, first + removed - 1);
        m_rows.remove(first, removed);
        m_idHashes.remove(first, removed);
        endRemoveRows();
    }
    if (added > 0)
        beginInsertRows({}, first, first + added - 1);
    m_project = after;
    m_rows = newRows;
    hashIDs(first, added);
    if (added > 0)
        endInsertRows();

    for (int row = 0; row < int(m_rows.size()); ++row) {
        if (row >= first && row < first + added)
            continue;
        const Row &is = m_rows.at(row);
        const Row &was = oldRows.at(row < first ? row : row - added + removed);
        const ServiceItem &item = before.serviceItems.at(was.item);
        const bool differs = is.slide < 0
            ? item.title != itemOf(is).title || item.type != itemOf(is).type
            : mayDiffer(item.slides, itemOf(is).slides)
                && (was.slide != is.slide || item.slides.at(was.slide) != slideOf(is));
        if (differs)
            emit dataChanged(index(row), index(row));
    }
}

RundownModel::Marks RundownModel::marks() const
{
    return {m_store.selectedServiceItemID(), m_store.selectedSlideID(), m_store.queuedSlideID(),
            m_store.liveSlideID(), m_store.outputMode()};
}

void RundownModel::showMarks()
{
    const Marks before = std::exchange(m_marks, marks());
    if (before == m_marks)
        return;
    QStringList items;
    QStringList slides;
    const auto note = [&](QStringList &ids, std::optional<QString> Marks::*mark) {
        if (before.*mark == m_marks.*mark)
            return;
        for (const std::optional<QString> &id : {before.*mark, m_marks.*mark}) {
            if (id && !ids.contains(*id))
                ids.append(*id);
        }
    };
    note(items, &Marks::serviceItem);
    note(slides, &Marks::selected);
    note(slides, &Marks::queued);
    note(slides, &Marks::live);
    if (before.outputMode != m_marks.outputMode && m_marks.live
        && !slides.contains(*m_marks.live)) {
        slides.append(*m_marks.live);
    }
    // A document may hold an id twice, so that two rows bear one mark.
    const auto tellOf = [&](const QStringList &ids, bool areItems) {
        for (const QString &id : ids) {
            QList<int> rows;
            for (int row = rowWith(id, areItems); row >= 0; row = rowWith(id, areItems, row + 1))
                rows.append(row);
            if (rows.size() > mostRowsInTurn) {
                emit dataChanged(index(rows.constFirst()), index(rows.constLast()));
                continue;
            }
            for (const int row : rows)
                emit dataChanged(index(row), index(row));
        }
    };
    tellOf(items, true);
    tellOf(slides, false);
}

int RundownModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant RundownModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return {};
    const Row &row = m_rows.at(index.row());
    return row.slide < 0 ? sectionData(itemOf(row), role) : slideData(row, role);
}

Qt::ItemFlags RundownModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractListModel::flags(index);
    return index.isValid() ? flags | Qt::ItemIsEditable : flags;
}

bool RundownModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return false;
    const Row row = m_rows.at(index.row());
    const auto change = [&](ServiceItem &item) {
        if (role == typeRole && row.slide < 0) {
            item.type = ServiceItemType(value.toInt());
        } else if (role != Qt::EditRole || value.toString().trimmed().isEmpty()) {
            return;
        } else if (row.slide < 0) {
            item.title = value.toString();
        } else if (item.slides.at(row.slide).title != value.toString()) {
            edits::retitle(item.slides[row.slide], value.toString());
        }
    };
    const ServiceItem before = itemOf(row);
    ServiceItem after = before;
    change(after);
    if (after == before)
        return false;
    m_store.keepServiceItem([&] {
        // A gesture of its own, so that no open one takes it in.
        const GestureID gesture = m_store.beginGesture();
        m_store.updateServiceItem(before.id, change);
        m_store.endGesture(gesture);
    });
    return true;
}

/// Where a row comes to stand when it is moved to before row \a gap; nothing if it may not, or
/// stands there. A section goes with its slides, and to no place within another one.
std::optional<RundownModel::Row> RundownModel::placeOf(const Row &row, int gap) const
{
    if (gap < 0 || gap > m_rows.size())
        return std::nullopt;
    if (row.slide < 0) {
        if (gap < m_rows.size() && m_rows.at(gap).slide >= 0)
            return std::nullopt;
        const int before =
            gap < m_rows.size() ? m_rows.at(gap).item : int(m_project.serviceItems.size());
        const int item = before > row.item ? before - 1 : before;
        return item == row.item ? std::nullopt : std::optional(Row{item, -1});
    }
    if (gap == 0)
        return std::nullopt;
    const Row &above = m_rows.at(gap - 1);
    const bool isBelowItself = above.item == row.item && above.slide >= row.slide;
    const Row place{above.item, isBelowItself ? above.slide : above.slide + 1};
    const bool isSame = place.item == row.item && place.slide == row.slide;
    return isSame ? std::nullopt : std::optional(place);
}

bool RundownModel::canMove(const QModelIndex &index, int gap) const
{
    return index.isValid() && index.row() < m_rows.size()
        && placeOf(m_rows.at(index.row()), gap).has_value();
}

void RundownModel::move(const QModelIndex &index, int gap)
{
    if (!canMove(index, gap))
        return;
    const Row row = m_rows.at(index.row());
    const Row place = *placeOf(row, gap);
    const QString id = idOf(m_project, row);
    const QString toServiceItemID = m_project.serviceItems.at(place.item).id;
    m_store.keepServiceItem([&] {
        if (row.slide < 0) {
            m_store.moveServiceItem(id, place.item);
        } else {
            m_store.moveSlide(id, toServiceItemID, place.slide);
        }
    });
}

QVariant RundownModel::sectionData(const ServiceItem &item, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return item.title;
    case Qt::ToolTipRole:
        return plainToolTip(item.title);
    case Qt::AccessibleDescriptionRole:
        return QStringLiteral("%1 section%2")
            .arg(title(item.type),
                 item.id == m_marks.serviceItem ? QStringLiteral(", selected") : QString());
    case idRole:
        return item.id;
    case isServiceItemRole:
        return true;
    case isSelectedRole:
        return item.id == m_marks.serviceItem;
    case symbolRole:
        return QLatin1String(symbols.at(std::size_t(item.type)).name);
    case typeRole:
        return int(item.type);
    default:
        return {};
    }
}

QVariant RundownModel::slideData(const Row &row, int role) const
{
    const Slide &slide = slideOf(row);
    switch (role) {
    case Qt::EditRole:
        return slide.title;
    case Qt::DisplayRole:
        return slide.title.isEmpty() ? QStringLiteral("Untitled") : slide.title;
    case Qt::ToolTipRole:
        return plainToolTip(slide.title.isEmpty() ? QStringLiteral("Untitled") : slide.title);
    case Qt::AccessibleDescriptionRole:
        return QStringLiteral("Slide %1 of %2%3")
            .arg(QString::number(row.slide + 1), itemOf(row).title, stateOf(slide));
    case idRole:
        return slide.id;
    case isServiceItemRole:
        return false;
    case isSelectedRole:
        return slide.id == m_marks.selected;
    case isQueuedRole:
        return slide.id == m_marks.queued;
    case isLiveRole:
        return slide.id == m_marks.live;
    case outputModeRole:
        return QVariant::fromValue(m_marks.outputMode);
    case numberRole:
        return row.slide + 1;
    default:
        return {};
    }
}

QString RundownModel::stateOf(const Slide &slide) const
{
    QString state;
    if (slide.id == m_marks.live)
        state += QStringLiteral(", live");
    if (slide.id == m_marks.queued)
        state += QStringLiteral(", queued");
    if (slide.id == m_marks.selected)
        state += QStringLiteral(", selected");
    return state;
}

const Slide *RundownModel::slideAt(const QModelIndex &index) const
{
    if (!index.isValid() || index.row() >= m_rows.size() || m_rows.at(index.row()).slide < 0)
        return nullptr;
    return &slideOf(m_rows.at(index.row()));
}

QModelIndex RundownModel::sectionOf(const QModelIndex &index) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return {};
    return this->index(index.row() - m_rows.at(index.row()).slide - 1);
}

QModelIndex RundownModel::endOfSection(const QModelIndex &index) const
{
    const QModelIndex section = sectionOf(index);
    return section.isValid()
        ? this->index(section.row() + int(itemOf(m_rows.at(section.row())).slides.size()))
        : section;
}

const ServiceItem *RundownModel::serviceItemAt(const QModelIndex &index) const
{
    if (!index.isValid() || index.row() >= m_rows.size() || m_rows.at(index.row()).slide >= 0)
        return nullptr;
    return &itemOf(m_rows.at(index.row()));
}

/// The first such row at or after \a from; -1 if there is none.
int RundownModel::rowWith(const QString &id, bool isServiceItem, qsizetype from) const
{
    const std::size_t hash = qHash(id);
    for (qsizetype i = m_idHashes.indexOf(hash, from); i >= 0;
         i = m_idHashes.indexOf(hash, i + 1)) {
        const Row &row = m_rows.at(i);
        if ((row.slide < 0) == isServiceItem && idOf(m_project, row) == id)
            return int(i);
    }
    return -1;
}

QModelIndex RundownModel::firstWith(const std::optional<QString> &id, bool isServiceItem) const
{
    const int row = id ? rowWith(*id, isServiceItem) : -1;
    return row < 0 ? QModelIndex() : index(row);
}

QModelIndex RundownModel::indexOfSlide(const std::optional<QString> &id) const
{
    return firstWith(id, false);
}

QModelIndex RundownModel::indexOfServiceItem(const std::optional<QString> &id) const
{
    return firstWith(id, true);
}

} // namespace quenara
