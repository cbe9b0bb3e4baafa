#pragma once

#include "ClockView.h"

#include <QFont>
#include <QList>
#include <QSize>
#include <QWidget>

#include <functional>

class QLabel;
class QLayout;
class QVBoxLayout;

namespace quenara {

class ElidedLabel;
class FittedText;
class OutputModeBadge;
struct RenderCaches;
class SlideView;
class WorkspaceStore;

/// What the people on stage see: their place in the show, the time, the output mode, and the live
/// slide and the next one with their words. Has no controls. Its lengths and fonts are the same in
/// every window, unless it is magnified for a screen that it fills.
class StageOutputView : public QWidget
{
    Q_OBJECT

public:
    /// What the lengths and fonts are meant for, in points.
    static constexpr QSize usualSize{1180, 720};

    StageOutputView(
        const WorkspaceStore &store, RenderCaches &caches,
        ClockView::Now now = [] { return QDateTime::currentDateTime(); },
        QWidget *parent = nullptr);

    /// Whether all of it is as much larger than in a window as the view is larger than usual.
    void setMagnified(bool isMagnified);
    bool isMagnified() const { return m_isMagnified; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    /// Sets what depends on the scale.
    using Measure = std::function<void(double scale)>;

    void followSize();
    void measured(const Measure &measure);
    void setFontSize(QWidget &widget, double size, QFont::Weight weight);
    QWidget *makeHeader(ClockView::Now now);
    QWidget *makeCurrentPanel();
    QWidget *makeNextPanel();
    SlideView *makeSlideView(int height, const QString &name);
    void fillPanel(QVBoxLayout &panel, QLayout *caption, SlideView *slide, FittedText *words);
    void showStore();

    const WorkspaceStore &m_store;
    RenderCaches &m_caches;
    QList<Measure> m_measures; ///< of all parts
    double m_scale = 1;
    bool m_isMagnified = false;
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
