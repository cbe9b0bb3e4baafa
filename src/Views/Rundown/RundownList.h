#pragma once

#include "PressableList.h"
#include "SlideThumbnails.h"

#include <functional>
#include <optional>

class QMenu;

namespace quenara {

class CommandActions;
class RundownDrag;
class RundownModel;
class WorkspaceStore;

/// The rundown as a list. A click on a slide selects and queues it, one on a section selects that.
/// Keys are left to the transport, except that Ctrl with an arrow moves to another row while the
/// list has the keyboard, Home and End to the first and the last, Ctrl+Space chooses the same
/// again, and F2 renames the row, as a double click on a section's title does. While a title is
/// typed, the keys are the field's. A row that is dragged moves within the list; what other
/// programs drag is not taken.
class RundownList : public PressableList
{
    Q_OBJECT

public:
    RundownList(WorkspaceStore &store, const CommandActions &commands, RenderCaches &caches,
                QWidget *parent = nullptr);

    const SlideThumbnails &thumbnails() const { return m_thumbnails; }

    /// The rows that lie at least in part on an \a area of the viewport, from the top down.
    QModelIndexList rowsIn(const QRect &area) const;

    /// Whether a row is being dragged.
    [[nodiscard]] bool isDragging() const;

    void choose(const QModelIndex &index) override;
    bool isChosen(const QModelIndex &index) const override;
    bool hasMenus() const override { return true; }
    void openMenu(const QModelIndex &index) override;

    /// Does \a move, which moves the section with that id, and scrolls along with it: its row stays
    /// where it is in the viewport, beyond the ends of the list if need be. endHold() comes back
    /// from there.
    void hold(const QString &sectionID, const std::function<void()> &move);
    void endHold();

signals:
    /// What has been painted of the rows is about to be moved.
    void aboutToScroll();
    /// Rows have come, gone, changed or moved.
    void rowsPlaced();

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QList<int> &roles) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void rowsInserted(const QModelIndex &parent, int first, int last) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;

private:
    QMenu *makeMenu(const QModelIndex &index);
    void rename(const QModelIndex &index);
    void drop();
    void goTo(const QModelIndex &row);
    QModelIndex affectedRow() const;
    std::optional<int> rowFor(const QKeyEvent &event) const;
    void tellOf(int row);
    void tellOfFocus();
    void showFocus();
    void followStore();
    void followSelection();
    void followLive();
    bool fitsFrom(const QModelIndex &first, const QModelIndex &last) const;
    QModelIndex comesNextAfter(const QModelIndex &live) const;
    void showRows(const QModelIndex &first, const QModelIndex &last, Qt::Edge edge);

    WorkspaceStore &m_store;
    const CommandActions &m_commands;
    SlideThumbnails m_thumbnails;
    RundownModel *m_model;
    RundownDrag *m_drag;
    QPersistentModelIndex m_rowBeforePress; ///< that the keyboard was at
    QString m_projectID; ///< of the project whose slides have thumbnails
    QPersistentModelIndex m_followed; ///< the row last scrolled to
    int m_followedRow = -1;
    std::optional<QString> m_liveID; ///< of the slide that was live when the list last followed
    bool m_hasNewSection = false; ///< the rows of a section have come since the last change
    bool m_isHolding = false;
    std::optional<int> m_heldPlace; ///< of the scroll bar, while it may lie beyond its ends
};

} // namespace quenara
