#pragma once

#include "Command.h"
#include "SlideThumbnails.h"

#include <QListView>

namespace quenara {

class CommandActions;
class RundownModel;
class SymbolButton;
class WorkspaceStore;

/// The rundown as a list. A click on a slide selects and queues it, one on a section selects that;
/// the sections in sight have buttons that move them. Keys are left to the transport.
class RundownList : public QListView
{
    Q_OBJECT

public:
    RundownList(WorkspaceStore &store, const CommandActions &commands, RenderCaches &caches,
                QWidget *parent = nullptr);

    const SlideThumbnails &thumbnails() const { return m_thumbnails; }

protected:
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QList<int> &roles) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Moves the section whose row it stands on.
    struct SectionButtons
    {
        SymbolButton *up;
        SymbolButton *down;
        QString itemID;
    };

    void choose(const QModelIndex &index);
    QModelIndex affectedRow() const;
    void followStore();
    QModelIndexList rowsIn(const QRect &area) const;
    SectionButtons &sectionButtons(qsizetype position);
    SymbolButton *makeMoveButton(qsizetype position, Command command);
    void placeSectionButtons();

    WorkspaceStore &m_store;
    const CommandActions &m_commands;
    SlideThumbnails m_thumbnails;
    RundownModel *m_model;
    QWidget *m_buttonsArea = nullptr; ///< over the rows, as wide as the buttons on it
    QPersistentModelIndex m_followed; ///< the row last scrolled to
    int m_followedRow = -1;
    QList<SectionButtons> m_sectionButtons; ///< of the sections in sight, then unused ones
};

} // namespace quenara
