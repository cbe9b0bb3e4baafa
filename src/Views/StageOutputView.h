#pragma once

#include <QWidget>

class QLabel;

namespace quenara {

class PictureCache;
class SlideView;
class WorkspaceStore;

/// What the people on stage see: the live slide and the name of the one after it.
class StageOutputView : public QWidget
{
    Q_OBJECT

public:
    StageOutputView(const WorkspaceStore &store, PictureCache &pictures, QWidget *parent = nullptr);

private:
    void showStore();

    const WorkspaceStore &m_store;
    QLabel *m_currentTitle;
    SlideView *m_currentSlide;
    QLabel *m_nextTitle;
};

} // namespace quenara
