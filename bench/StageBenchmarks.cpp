#include "StageBenchmarks.h"

#include "BenchStore.h"
#include "DisplayOutputView.h"
#include "ProjectGenerator.h"
#include "RenderCaches.h"
#include "StageOutputView.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <chrono>
#include <optional>
#include <vector>

namespace quenara::bench {

namespace {

constexpr QSize usualSize{1180, 720};
constexpr QSize fullHD{1920, 1080};
constexpr QSize ultraHD{3840, 2160};
constexpr ProjectSize show{.slideCount = 12, .itemCount = 3};
/// How often the cases take turns, so that other work of the machine slows them alike.
constexpr int rounds = 60;
constexpr std::size_t cacheBytes = std::size_t(64) * 1024 * 1024; ///< more than a processor's cache

QString atSize(const QString &name, const QSize &size)
{
    return QStringLiteral("%1, %2 x %3").arg(name).arg(size.width()).arg(size.height());
}

double timeOfFilling(QImage &image)
{
    return nanosecondsOf([&image] { QPainter(&image).fillRect(image.rect(), Qt::darkBlue); },
                         [] {});
}

Figure wholeStage(const QSize &size)
{
    BenchStore workspace(generateProject(show));
    RenderCaches caches;
    StageOutputView view(workspace.store, caches);
    view.resize(size);
    QImage image(size, QImage::Format_RGB32);
    const double fill = timeOfFilling(image);
    return {.name = atSize(QStringLiteral("the whole stage monitor"), size),
            .value = nanosecondsOf([&] { view.render(&image); }, [] {}),
            .yardstickName = QStringLiteral("a solid fill"),
            .yardstick = fill};
}

using Clock = std::chrono::steady_clock;
using Nanoseconds = std::chrono::duration<double, std::nano>;

double median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// How the steps of a show follow one another.
enum class Pace {
    asPressed, ///< seconds apart: the processor's caches hold nothing of the windows any more
    backToBack,
};

/// Fills the processor's caches with other things.
void passTime()
{
    static std::vector<char> others(cacheBytes);
    for (std::size_t i = 0; i < others.size(); i += 64)
        ++others[i];
}

/// The audience's window on a show, and the stage monitor if that has a size.
class Outputs
{
public:
    explicit Outputs(const std::optional<QSize> &stageSize)
    {
        m_display.resize(fullHD);
        m_display.show();
        // The display paints what went live when it hears of it, and hears of it before this does.
        QObject::connect(&m_workspace.store, &WorkspaceStore::liveSlideIDChanged, &m_display,
                         [this] { m_seen = Clock::now(); });
        if (stageSize) {
            m_stage.emplace(m_workspace.store, m_caches);
            m_stage->resize(*stageSize);
            m_stage->show();
        }
        QCoreApplication::processEvents();
    }

    /// Goes through the whole show, one step a turn of the event loop.
    void run(Pace pace)
    {
        for (int step = 0; step < show.slideCount; ++step) {
            if (pace == Pace::asPressed)
                passTime();
            const Clock::time_point start = Clock::now();
            m_workspace.store.nextLive();
            QCoreApplication::processEvents();
            m_untilSeen.push_back(Nanoseconds(m_seen - start).count());
            m_afterwards.push_back(Nanoseconds(Clock::now() - m_seen).count());
        }
    }

    /// From a step until the audience has seen it.
    double untilSeen() const { return median(m_untilSeen); }

    /// How long the turn then takes, which is for the stage monitor.
    double afterwards() const { return median(m_afterwards); }

private:
    BenchStore m_workspace{generateProject(show)};
    RenderCaches m_caches;
    DisplayOutputView m_display{m_workspace.store, m_caches};
    std::optional<StageOutputView> m_stage;
    Clock::time_point m_seen;
    std::vector<double> m_untilSeen;
    std::vector<double> m_afterwards;
};

QList<Figure> withAndWithoutStage(const QSize &size, Pace pace)
{
    Outputs alone(std::nullopt);
    Outputs withStage(size);
    for (int round = 0; round < rounds; ++round) {
        for (Outputs *outputs : {&alone, &withStage})
            outputs->run(pace);
    }
    const bool isAsPressed = pace == Pace::asPressed;
    const auto figure = [&](const char *name, double value, std::optional<double> limit) {
        QString title = atSize(QString::fromLatin1(name), size);
        if (!isAsPressed)
            title += QStringLiteral(", back to back");
        return Figure{.name = title,
                      .value = value,
                      .yardstickName = QStringLiteral("a step on the display alone"),
                      .yardstick = alone.untilSeen(),
                      .limit = limit};
    };
    return {figure("display with the stage", withStage.untilSeen(),
                   isAsPressed ? std::optional(1.1 * alone.untilSeen()) : std::nullopt),
            figure("the stage after a step", withStage.afterwards(), std::nullopt)};
}

} // namespace

QList<Figure> stageFigures()
{
    QList<Figure> figures{wholeStage(usualSize), wholeStage(ultraHD)};
    for (const QSize &size : {usualSize, ultraHD}) {
        for (const Pace pace : {Pace::asPressed, Pace::backToBack})
            figures += withAndWithoutStage(size, pace);
    }
    return figures;
}

} // namespace quenara::bench
