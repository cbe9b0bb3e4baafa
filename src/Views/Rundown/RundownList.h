#pragma once

#include "SlideThumbnails.h"

#include <QListView>

#include <optional>

namespace quenara {

class CommandActions;
class RundownModel;
class WorkspaceStore;

/// The rundown as a list. A click on a slide selects and queues it, one on a section selects that.
/// Keys are left to the transport, except that Ctrl with an arrow moves to another row while the
/// list has the keyboard, Home and End to the first and the last, and Ctrl+Space chooses the same
/// again.
class RundownList : public QListView
{
    Q_OBJECT

public:
    RundownList(WorkspaceStore &store, const CommandActions &commands, RenderCaches &caches,
                QWidget *parent = nullptr);

    const SlideThumbnails &thumbnails() const { return m_thumbnails; }

    /// The rows that lie at least in part on an \a area of the viewport, from the top down.
    QModelIndexList rowsIn(const QRect &area) const;

    /// Does what a click on a row does.
    void choose(const QModelIndex &index);

signals:
    /// What has been painted of the rows is about to be moved.
    void aboutToScroll();
    /// Rows have come, gone, changed or moved.
    void rowsPlaced();

protected:
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QList<int> &roles) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;

private:
    QModelIndex affectedRow() const;
    std::optional<int> rowFor(const QKeyEvent &event) const;
    void tellOf(int row);
    void followStore();

    WorkspaceStore &m_store;
    const CommandActions &m_commands;
    SlideThumbnails m_thumbnails;
    RundownModel *m_model;
    QPersistentModelIndex m_followed; ///< the row last scrolled to
    int m_followedRow = -1;
};

} // namespace quenara
