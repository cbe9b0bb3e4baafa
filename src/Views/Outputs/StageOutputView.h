#pragma once

#include "ClockView.h"

#include <QWidget>

class QLabel;

namespace quenara {

class ElidedLabel;
class FittedText;
class OutputModeBadge;
struct RenderCaches;
class SlideView;
class WorkspaceStore;

/// What the people on stage see: their place in the show, the time, the output mode, and the live
/// slide and the next one with their words. Has no controls.
class StageOutputView : public QWidget
{
    Q_OBJECT

public:
    StageOutputView(
        const WorkspaceStore &store, RenderCaches &caches,
        ClockView::Now now = [] { return QDateTime::currentDateTime(); },
        QWidget *parent = nullptr);

private:
    QWidget *makeHeader(ClockView::Now now);
    QWidget *makeCurrentPanel();
    QWidget *makeNextPanel();
    void showStore();

    const WorkspaceStore &m_store;
    RenderCaches &m_caches;
    ElidedLabel *m_section = nullptr;
    QLabel *m_slideCount = nullptr;
    OutputModeBadge *m_outputMode = nullptr;
    SlideView *m_currentSlide = nullptr;
    FittedText *m_currentText = nullptr;
    ElidedLabel *m_queuedTitle = nullptr;
    SlideView *m_nextSlide = nullptr;
    FittedText *m_nextText = nullptr;
};

} // namespace quenara
