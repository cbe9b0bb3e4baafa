#pragma once

#include "WorkspaceState.h"

#include <QAbstractListModel>

namespace quenara {

class WorkspaceStore;

/// The show as rows of a list: each service item's title followed by its slides.
class ShowListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        slideIDRole = Qt::UserRole, ///< a string; null for a service item's row
        isSelectedRole, ///< these three are booleans
        isQueuedRole,
        isLiveRole,
        numberRole, ///< 1-based number of the slide in its item
    };

    explicit ShowListModel(const WorkspaceStore &store, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

    /// The row of the slide, invalid for an unknown one.
    QModelIndex indexOf(const std::optional<QString> &slideID) const;

private:
    struct Row
    {
        qsizetype item;
        qsizetype slide; ///< -1 for the item's own row
    };

    void rebuild();
    void redrawStates();

    const WorkspaceStore &m_store;
    ZelvoProject m_project; ///< what the rows index into
    QList<Row> m_rows;
};

} // namespace quenara
