#include "StageBenchmarks.h"

#include "BenchStore.h"
#include "DisplayOutputView.h"
#include "InterfaceStyle.h"
#include "PictureCache.h"
#include "ProjectGenerator.h"
#include "SlideFonts.h"
#include "StageOutputView.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <optional>

namespace quenara::bench {

namespace {

constexpr QSize usualSize{1180, 720};
constexpr QSize fullHD{1920, 1080};
constexpr QSize ultraHD{3840, 2160};
constexpr ProjectSize show{.slideCount = 12, .itemCount = 3};

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
    PictureCache pictures;
    StageOutputView view(workspace.store, pictures);
    view.resize(size);
    QImage image(size, QImage::Format_RGB32);
    const double fill = timeOfFilling(image);
    return {.name = atSize(QStringLiteral("the whole stage monitor"), size),
            .value = nanosecondsOf([&] { view.render(&image); }, [] {}),
            .yardstickName = QStringLiteral("a solid fill"),
            .yardstick = fill};
}

void repaint(QWidget &window)
{
    QCoreApplication::sendPostedEvents(&window, QEvent::UpdateRequest);
}

/// Both windows on one show.
struct Outputs
{
    BenchStore workspace{generateProject(show)};
    PictureCache pictures;
    DisplayOutputView display{workspace.store, pictures};
    std::optional<StageOutputView> stage;

    explicit Outputs(const std::optional<QSize> &stageSize)
    {
        display.resize(fullHD);
        display.show();
        if (stageSize) {
            stage.emplace(workspace.store, pictures);
            stage->resize(*stageSize);
            stage->show();
        }
        QCoreApplication::processEvents();
    }

    void repaintStage()
    {
        if (stage)
            repaint(*stage);
    }

    /// From a step through the show until the audience sees it.
    double timeOnDisplay()
    {
        return nanosecondsOf(
            [this] {
                workspace.store.nextLive();
                repaint(display);
            },
            [this] { repaintStage(); });
    }

    /// What the stage monitor then takes.
    double timeOnStage()
    {
        workspace.store.nextLive();
        repaint(display);
        return nanosecondsOf([this] { repaintStage(); },
                             [this] {
                                 workspace.store.nextLive();
                                 repaint(display);
                             });
    }
};

} // namespace

QList<Figure> stageFigures()
{
    loadBundledFonts();
    QApplication::setFont(systemFont(13, QFont::Normal));
    QApplication::setPalette(interfacePalette(ZelvoTheme::dark()));
    qApp->setStyleSheet(interfaceStyleSheet(ZelvoTheme::dark()));
    const double alone = Outputs(std::nullopt).timeOnDisplay();
    QList<Figure> figures{wholeStage(usualSize), wholeStage(ultraHD)};
    for (const QSize &size : {usualSize, ultraHD}) {
        Outputs outputs(size);
        figures.append({.name = atSize(QStringLiteral("display with the stage"), size),
                        .value = outputs.timeOnDisplay(),
                        .yardstickName = QStringLiteral("a step on the display alone"),
                        .yardstick = alone});
        figures.append({.name = atSize(QStringLiteral("the stage after a step"), size),
                        .value = outputs.timeOnStage(),
                        .yardstickName = QStringLiteral("a step on the display alone"),
                        .yardstick = alone});
    }
    return figures;
}

} // namespace quenara::bench
