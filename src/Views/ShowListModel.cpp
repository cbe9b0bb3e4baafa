#include "ShowListModel.h"

#include "WorkspaceStore.h"

#include <algorithm>

namespace quenara {

ShowListModel::ShowListModel(const WorkspaceStore &store, QObject *parent)
    : QAbstractListModel(parent), m_store(store)
{
    connect(&store, &WorkspaceStore::projectChanged, this, &ShowListModel::rebuild);
    connect(&store, &WorkspaceStore::selectedSlideIDChanged, this, &ShowListModel::redrawStates);
    connect(&store, &WorkspaceStore::queuedSlideIDChanged, this, &ShowListModel::redrawStates);
    connect(&store, &WorkspaceStore::liveSlideIDChanged, this, &ShowListModel::redrawStates);
    rebuild();
}

void ShowListModel::rebuild()
{
    beginResetModel();
    m_project = m_store.project();
    m_rows.clear();
    for (qsizetype i = 0; i < m_project.serviceItems.size(); ++i) {
        m_rows.append({i, -1});
        for (qsizetype j = 0; j < m_project.serviceItems.at(i).slides.size(); ++j)
            m_rows.append({i, j});
    }
    endResetModel();
}

void ShowListModel::redrawStates()
{
    if (!m_rows.isEmpty()) {
        emit dataChanged(index(0), index(int(m_rows.size()) - 1),
                         {isSelectedRole, isQueuedRole, isLiveRole, Qt::AccessibleTextRole});
    }
}

int ShowListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant ShowListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return {};
    const Row &row = m_rows.at(index.row());
    const ServiceItem &item = m_project.serviceItems.at(row.item);
    if (row.slide < 0)
        return role == Qt::DisplayRole ? QVariant(item.title) : QVariant();

    const Slide &slide = item.slides.at(row.slide);
    const bool isQueued = slide.id == m_store.queuedSlideID();
    const bool isLive = slide.id == m_store.liveSlideID();
    const QString title = slide.title.isEmpty() ? QStringLiteral("Untitled") : slide.title;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return title;
    case Qt::AccessibleTextRole:
        return title + (isLive ? QStringLiteral(", live") : QString())
            + (isQueued ? QStringLiteral(", queued") : QString());
    case slideIDRole:
        return slide.id;
    case isSelectedRole:
        return slide.id == m_store.selectedSlideID();
    case isQueuedRole:
        return isQueued;
    case isLiveRole:
        return isLive;
    case numberRole:
        return int(row.slide) + 1;
    default:
        return {};
    }
}

QModelIndex ShowListModel::indexOf(const std::optional<QString> &slideID) const
{
    if (!slideID)
        return {};
    const auto found = std::find_if(m_rows.cbegin(), m_rows.cend(), [&](const Row &row) {
        return row.slide >= 0
            && m_project.serviceItems.at(row.item).slides.at(row.slide).id == *slideID;
    });
    return found == m_rows.cend() ? QModelIndex() : index(int(found - m_rows.cbegin()));
}

} // namespace quenara
