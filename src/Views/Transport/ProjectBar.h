#pragma once

#include "TextField.h"

class QLabel;

namespace quenara {

class CommandActions;
class OutputModeBadge;
class WorkspaceStore;

/// The project's name as a field. Written when editing ends, as one undo step; Escape puts the old
/// name back. While it is not edited, a name that is too long ends in an ellipsis, and the tooltip
/// has it whole.
class ProjectNameField : public TextField
{
    Q_OBJECT

public:
    explicit ProjectNameField(WorkspaceStore &store, QWidget *parent = nullptr);
    ~ProjectNameField() override;

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showName();
    void write();
    QString elidedName() const;

    WorkspaceStore &m_store;
    QString m_projectID; ///< whose name the field holds
};

/// The bar across the top of the operator window: the project, where it is kept, whether unsaved
/// changes would be lost in a crash, and what the audience sees.
class ProjectBar : public QWidget
{
    Q_OBJECT

public:
    static constexpr int barHeight = 52; ///< points

    ProjectBar(WorkspaceStore &store, const CommandActions &commands, QWidget *parent = nullptr);

    /// Says so while unsaved changes would not come back after a crash.
    void showWhetherKept(bool isKept);

private:
    void showState();

    WorkspaceStore &m_store;
    QLabel *m_edited;
    QLabel *m_fileName;
    QLabel *m_noRecovery;
    OutputModeBadge *m_outputMode;
};

} // namespace quenara
