#pragma once

#include <QWidget>

class QLabel;

namespace quenara {

class SlideView;
class WorkspaceStore;

/// What the people on stage see: the live slide and the name of the one after it.
class StageOutputView : public QWidget
{
    Q_OBJECT

public:
    explicit StageOutputView(const WorkspaceStore &store, QWidget *parent = nullptr);

private:
    void showStore();

    const WorkspaceStore &m_store;
    QLabel *m_currentTitle;
    SlideView *m_currentSlide;
    QLabel *m_nextTitle;
};

} // namespace quenara
