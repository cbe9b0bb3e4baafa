#include "WorkplaceBenchmarks.h"

#include "BenchCommands.h"
#include "CanvasHand.h"
#include "DisplayOutputView.h"
#include "OperatorView.h"
#include "ProjectGenerator.h"
#include "RenderCaches.h"
#include "RundownList.h"
#include "RundownModel.h"
#include "Settling.h"
#include "StageOutputView.h"
#include "TextField.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <limits>

namespace quenara::bench {

namespace {

constexpr QSize operatorSize{1480, 900};
constexpr QSize displaySize{1920, 1080};
constexpr QSize stageSize{1180, 720};
constexpr ProjectSize show{.slideCount = 10'000, .itemCount = 500};
constexpr int stepCount = 200;
constexpr double frameLimit = 16e6; ///< nanoseconds
constexpr double dragLimit = 8e6;

TextField *titleFieldOf(const QWidget &view)
{
    const QList<TextField *> fields = view.findChildren<TextField *>();
    const auto title = std::find_if(fields.begin(), fields.end(), [](const TextField *field) {
        return field->accessibleName() == QStringLiteral("Title");
    });
    return *title;
}

class Workplace
{
public:
    /// The show begins with \a first.
    explicit Workplace(const Slide &first) : m_workspace(showBeginningWith(first))
    {
        m_display.resize(displaySize);
        m_stage.resize(stageSize);
        m_view.resize(operatorSize);
        for (QWidget *window : {static_cast<QWidget *>(&m_display),
                                static_cast<QWidget *>(&m_stage), static_cast<QWidget *>(&m_view)})
            window->show();
        m_view.activateWindow();
        settle();
    }

    void showOutputs(bool areShown)
    {
        m_display.setVisible(areShown);
        m_stage.setVisible(areShown);
        settle();
    }

    WorkspaceStore &store() { return m_workspace.store; }
    CanvasHand &hand() { return m_hand; }

    void select(qsizetype absolute)
    {
        const Slide slide = store().flattenedSlides().at(absolute).slide;
        store().selectSlide(slide.id, true);
        store().selectElement(slide.design.firstTextElementID());
        settle();
    }

    void goLive()
    {
        store().goLive();
        settle();
    }

    /// Clicks one of two rows in sight, each in turn.
    void clickRow()
    {
        const QModelIndex selected = m_model->indexOfSlide(store().selectedSlideID());
        m_isOnLower = !m_isOnLower;
        const QRect row =
            m_list->visualRect(selected.siblingAtRow(selected.row() + (m_isOnLower ? 1 : -1)));
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, row.center(), m_list->viewport()->mapToGlobal(row.center()),
                              Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(m_list->viewport(), &event);
        }
        settle();
    }

    void stepLive()
    {
        store().nextLive();
        settle();
    }

    void stepQueue()
    {
        store().queueNext();
        settle();
    }

    void typeTitle()
    {
        if (++m_letterCount % 20 == 0)
            m_title->selectAll();
        QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
        QApplication::sendEvent(m_title, &key);
        settle();
    }

    void duplicateSlide()
    {
        store().duplicateSelectedSlide();
        settle();
    }

    /// One notch, until the list is painted as far as a frame leaves time for.
    void turnWheel()
    {
        const QPointF middle = m_list->viewport()->rect().center();
        QWheelEvent event(middle, m_list->viewport()->mapToGlobal(middle), {}, {0, -120},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(m_list->viewport(), &event);
        QCoreApplication::sendPostedEvents();
    }

    double timeOfFilling()
    {
        QImage image(operatorSize, QImage::Format_RGB32);
        return nanosecondsOf([&] { QPainter(&image).fillRect(image.rect(), Qt::darkBlue); }, [] {});
    }

private:
    static ZelvoProject showBeginningWith(const Slide &first)
    {
        ZelvoProject project = generateProject(show);
        project.serviceItems.first().slides.first() = first;
        return project;
    }

    BenchCommands m_workspace;
    RenderCaches m_caches;
    DisplayOutputView m_display{m_workspace.store, m_caches};
    StageOutputView m_stage{m_workspace.store, m_caches};
    OperatorView m_view{m_workspace.store, m_workspace.commands, m_caches};
    RundownList *m_list = m_view.findChild<RundownList *>();
    const RundownModel *m_model = m_view.findChild<RundownModel *>();
    TextField *m_title = titleFieldOf(m_view);
    CanvasHand m_hand{m_workspace.store, m_view, settle};
    bool m_isOnLower = false;
    int m_letterCount = 0;
};

QList<Figure> figuresOf(Workplace &workplace, const Times &times, const char *name, double limit)
{
    const double fill = workplace.timeOfFilling();
    const auto figure = [&](const char *which, double share, std::optional<double> most) {
        return Figure{.name = QStringLiteral("%1, %2").arg(QString::fromLatin1(name),
                                                           QString::fromLatin1(which)),
                      .value = times.within(share),
                      .yardstickName = QStringLiteral("a solid fill of the window"),
                      .yardstick = fill,
                      .limit = most};
    };
    return {figure("99 of 100", 0.99, limit), figure("the middle one", 0.5, std::nullopt)};
}

/// Takes the same steps three times and the fastest time of each: that leaves what a slide costs,
/// without what slows the machine for a moment.
Times bestTimesOfLiveSteps(Workplace &workplace)
{
    constexpr int passes = 3;
    QList<double> best(stepCount, std::numeric_limits<double>::infinity());
    for (int pass = 0; pass < passes; ++pass) {
        workplace.select(show.slideCount / 2);
        workplace.goLive();
        for (double &fastest : best) {
            Times once;
            once.measure([&] { workplace.stepLive(); });
            fastest = std::min(fastest, once.within(1));
        }
    }
    return Times(best);
}

} // namespace

QList<Figure> workplaceFigures()
{
    Workplace workplace(lyricSlide());
    QList<Figure> figures;
    const auto measure = [&](const char *name, const std::function<void()> &take,
                             double limit = frameLimit) {
        Times times;
        for (int i = 0; i < stepCount; ++i)
            times.measure(take);
        figures += figuresOf(workplace, times, name, limit);
    };
    const auto drag = [&] { workplace.hand().drag(); };
    workplace.select(1);
    workplace.goLive();
    workplace.select(0);
    workplace.hand().beginDrag();
    measure("a lyric's drag", drag, dragLimit);
    workplace.hand().endDrag();
    workplace.goLive();
    workplace.hand().beginDrag();
    measure("a lyric's drag before the audience", drag);
    workplace.hand().endDrag();
    workplace.select(show.slideCount / 2);
    workplace.goLive();
    measure("a click on a row", [&] { workplace.clickRow(); });
    measure("a step of the live slide", [&] { workplace.stepLive(); });
    figures += figuresOf(workplace, bestTimesOfLiveSteps(workplace),
                         "a step of the live slide at its best of three", frameLimit);
    workplace.showOutputs(false);
    measure("the same in the operator's window alone", [&] { workplace.stepLive(); });
    workplace.showOutputs(true);
    measure("a step of the queue", [&] { workplace.stepQueue(); });
    measure("a letter of the title", [&] { workplace.typeTitle(); });
    measure("a slide more", [&] { workplace.duplicateSlide(); });
    measure("a turn of the wheel", [&] { workplace.turnWheel(); });
    return figures;
}

} // namespace quenara::bench
