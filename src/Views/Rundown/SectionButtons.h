#pragma once

#include "Command.h"

#include <QList>
#include <QWidget>

namespace quenara {

class CommandActions;
class RundownList;
class SymbolButton;
class WorkspaceStore;

/// The buttons that move the sections in sight, each pair over its section's row. They are siblings
/// of the list, not parts of it: a list tells screen readers of its rows alone.
class SectionButtons : public QWidget
{
    Q_OBJECT

public:
    /// Keeps over the rows of \a list. \a parent is the parent of the list, too.
    SectionButtons(WorkspaceStore &store, const CommandActions &commands, RundownList &list,
                   QWidget *parent);

    bool eventFilter(QObject *rundown, QEvent *event) override;

protected:
    void wheelEvent(QWheelEvent *event) override;

private:
    struct Pair
    {
        SymbolButton *up;
        SymbolButton *down;
        QString itemID; ///< of the section that they move
    };

    SymbolButton *makeButton(qsizetype position, Command command);
    Pair &pairAt(qsizetype position);
    void moveSection(const QString &itemID, Command command);
    void uncover();
    void place();

    WorkspaceStore &m_store;
    const CommandActions &m_commands;
    RundownList &m_list;
    QList<Pair> m_pairs; ///< of the sections in sight from the top, then those not in use
};

} // namespace quenara
