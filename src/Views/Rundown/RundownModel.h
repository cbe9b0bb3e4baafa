#pragma once

#include "WorkspaceState.h"

#include <QAbstractListModel>

#include <optional>

namespace quenara {

class WorkspaceStore;

/// The rundown as rows of a list: each service item followed by its slides. The model announces
/// which rows came, went and changed, so that views draw no others again. Rows can be renamed and
/// moved, and service items given another type.
class RundownModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        idRole = Qt::UserRole, ///< of the slide or the service item
        isServiceItemRole, ///< these four are booleans
        isSelectedRole,
        isQueuedRole,
        isLiveRole,
        outputModeRole, ///< an OutputMode: what the audience sees while the slide is live
        numberRole, ///< 1-based number of the slide in its item
        symbolRole, ///< of the item's type, a name in `resources/icons.list`
        typeRole, ///< of the item: a ServiceItemType as an integer
    };

    explicit RundownModel(WorkspaceStore &store, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Renames a service item or a slide (Qt::EditRole), or changes an item's type (typeRole), each
    /// as one undo step. Returns false and changes nothing for a blank title and for what the row
    /// has already.
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

    /// Moves a slide, or a service item with its slides, to before the row \a gap (rowCount(): to
    /// the end), as one undo step that changes no selection. Nothing where canMove() is false:
    /// where it stands, and for an item within another one.
    void move(const QModelIndex &index, int gap);
    [[nodiscard]] bool canMove(const QModelIndex &index, int gap) const;

    /// Null for a service item's row.
    const Slide *slideAt(const QModelIndex &index) const;
    /// Null for a slide's row.
    const ServiceItem *serviceItemAt(const QModelIndex &index) const;

    /// The row of the first slide or service item with that id, invalid for an unknown one.
    QModelIndex indexOfSlide(const std::optional<QString> &id) const;
    QModelIndex indexOfServiceItem(const std::optional<QString> &id) const;

    /// The row of the service item that the row belongs to, and the last row of that item.
    QModelIndex sectionOf(const QModelIndex &index) const;
    QModelIndex endOfSection(const QModelIndex &index) const;

private:
    struct Row
    {
        int item;
        int slide; ///< -1 for the item's own row
    };

    /// The selection, as far as rows show it.
    struct Marks
    {
        std::optional<QString> serviceItem;
        std::optional<QString> selected;
        std::optional<QString> queued;
        std::optional<QString> live;
        OutputMode outputMode = OutputMode::live;

        bool operator==(const Marks &) const = default;
    };

    static QList<Row> rowsOf(const ZelvoProject &project);
    static const QString &idOf(const ZelvoProject &project, const Row &row);

    int rowWith(const QString &id, bool isServiceItem, qsizetype from = 0) const;
    QModelIndex firstWith(const std::optional<QString> &id, bool isServiceItem) const;
    const ServiceItem &itemOf(const Row &row) const;
    const Slide &slideOf(const Row &row) const;
    std::optional<Row> placeOf(const Row &row, int gap) const;
    QVariant sectionData(const ServiceItem &item, int role) const;
    QVariant slideData(const Row &row, int role) const;
    QString stateOf(const Slide &slide) const;
    Marks marks() const;
    void hashIDs(int first, int count);
    void showProject();
    void showMarks();

    WorkspaceStore &m_store;
    ZelvoProject m_project; ///< what the rows index into
    QList<Row> m_rows;
    QList<std::size_t>
        m_idHashes; ///< of the rows' ids, so that finding a row compares no other ids
    Marks m_marks;
};

} // namespace quenara
