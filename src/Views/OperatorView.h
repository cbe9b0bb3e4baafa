#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QListView;

namespace quenara {

class PictureCache;
class ShowListModel;
class SlideView;
class WorkspaceStore;

/// The content of the operator window: the project's name and state, the show as a list, and a
/// picture of the live slide. A click on a slide selects and queues it.
class OperatorView : public QWidget
{
    Q_OBJECT

public:
    OperatorView(WorkspaceStore &store, PictureCache &pictures, QWidget *parent = nullptr);
    ~OperatorView() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *makeProjectBar();
    QWidget *makeShowList();
    QWidget *makeLivePreview();
    void commitProjectName();
    void showStore();
    void showSelection();

    WorkspaceStore &m_store;
    PictureCache &m_pictures;
    QLineEdit *m_projectName = nullptr;
    QString m_namedProjectID; ///< whose name the field holds
    QLabel *m_edited = nullptr;
    QLabel *m_fileName = nullptr;
    QLabel *m_outputState = nullptr;
    ShowListModel *m_showModel = nullptr;
    QListView *m_showList = nullptr;
    QLabel *m_liveCaption = nullptr; ///< says so when the audience does not see the live slide
    QLabel *m_liveTitle = nullptr;
    SlideView *m_livePreview = nullptr;
};

} // namespace quenara
