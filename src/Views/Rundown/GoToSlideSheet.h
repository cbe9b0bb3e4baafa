#pragma once

#include "SlideSearch.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace quenara {

class FoundSlides;
class FoundList;
class WorkspaceStore;

/// The sheet that finds a slide by some of its words. While these are typed, the arrows choose
/// among the slides that have them; the one that is likeliest meant is chosen first. Return or a
/// click on a slide selects and queues it, Ctrl+Return sends it live, too. Nothing else changes the
/// show.
class GoToSlideSheet : public QDialog
{
    Q_OBJECT

public:
    GoToSlideSheet(WorkspaceStore &store, QWidget *parent);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void searchShow();
    void find();
    void choose(const QModelIndex &slide);
    void sendLive();

    WorkspaceStore &m_store;
    SlideSearch m_search;
    FoundSlides *m_found;
    QLineEdit *m_words = nullptr;
    FoundList *m_list = nullptr;
    QLabel *m_nothing = nullptr; ///< says so where the list would be
    QPushButton *m_queue = nullptr;
    QPushButton *m_goLive = nullptr;
};

} // namespace quenara
