#include "ExportBenchmarks.h"

#include "PdfPages.h"
#include "PictureFolder.h"
#include "ProjectGenerator.h"
#include "Show.h"
#include "ShowExport.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>

namespace quenara::bench {

namespace {

constexpr ProjectSize show{
    .slideCount = 500, .itemCount = 25, .imageCount = 20, .imageBytes = 1'000'000};
constexpr double longestPause = 100e6; ///< nanoseconds

std::unique_ptr<SlideSink> sinkIn(const QTemporaryDir &folder, ExportFormat format)
{
    const QString name = QStringLiteral("show");
    if (format == ExportFormat::pictures)
        return std::make_unique<PictureFolder>(folder.path(), name, show.slideCount);
    return std::make_unique<PdfPages>(folder.filePath(name),
                                      PdfPages::Content{.projectName = name,
                                                        .slideCount = show.slideCount,
                                                        .format = format,
                                                        .paper = QPageSize(QPageSize::A4)});
}

/// In nanoseconds, between two events.
double pauseOf(const QList<FlattenedSlide> &slides, ExportFormat format)
{
    const QTemporaryDir folder;
    ShowExport showExport(slides, sinkIn(folder, format));
    bool isDone = false;
    QObject::connect(&showExport, &ShowExport::finished, [&](bool isWhole) {
        if (!isWhole)
            qFatal("cannot export: %s", qPrintable(showExport.sink().fault()));
        isDone = true;
    });
    showExport.start();
    qint64 longest = 0;
    QElapsedTimer timer;
    while (!isDone) {
        timer.start();
        QCoreApplication::processEvents();
        longest = std::max(longest, timer.nsecsElapsed());
    }
    return double(longest);
}

} // namespace

QList<Figure> exportFigures()
{
    const QList<FlattenedSlide> slides = flattenedSlides(generateProject(show));
    QImage image(exportedPixels, QImage::Format_RGB32);
    const double fill =
        nanosecondsOf([&image] { QPainter(&image).fillRect(image.rect(), Qt::darkBlue); }, [] {});
    QList<Figure> figures;
    for (const ExportFormatDescription &format : exportFormats()) {
        figures.append({.name = QStringLiteral("the longest pause of an export of %1 slides: %2")
                                    .arg(show.slideCount)
                                    .arg(QString::fromUtf8(format.title)),
                        .value = pauseOf(slides, format.format),
                        .yardstickName = QStringLiteral("a solid fill"),
                        .yardstick = fill,
                        .limit = longestPause});
    }
    return figures;
}

} // namespace quenara::bench
