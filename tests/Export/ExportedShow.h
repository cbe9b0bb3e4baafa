#pragma once

#include "ExportFormat.h"
#include "GuiTestSupport.h"
#include "ProjectTemplates.h"
#include "RenderCaches.h"
#include "Show.h"
#include "SlideSink.h"
#include "TestSupport.h"

#include <QDir>
#include <QProcess>

namespace quenara::test {

/// Has \a sink make all of \a slides.
inline void exportTo(SlideSink &sink, const QList<FlattenedSlide> &slides,
                     const Caller &caller = Caller::current())
{
    RenderCaches caches;
    bool isGoingOn = sink.open();
    for (const FlattenedSlide &slide : slides) {
        if (!isGoingOn)
            break;
        sink.paint(slide, caches);
        do {
            isGoingOn = sink.write();
        } while (isGoingOn && sink.hasMore());
    }
    if (!isGoingOn || !sink.finish())
        fail(sink.fault(), caller);
}

/// What \a program prints when it has read a document.
inline QString printedBy(const QString &program, const QStringList &arguments,
                         const Caller &caller = Caller::current())
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0) {
        fail(program + QStringLiteral(": ") + QString::fromUtf8(process.readAllStandardError()),
             caller);
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// The pages of the document at \a path, as a printer of 150 dots an inch shows them.
inline QList<QImage> pagesOf(const QString &path, const Caller &caller = Caller::current())
{
    const QTemporaryDir folder;
    printedBy(QStringLiteral("pdftoppm"),
              {QStringLiteral("-r"), QStringLiteral("150"), QStringLiteral("-png"), path,
               folder.filePath(QStringLiteral("page"))},
              caller);
    QList<QImage> pages;
    const QDir pictures(folder.path());
    for (const QString &name : pictures.entryList(QDir::Files, QDir::Name))
        pages.append(QImage(pictures.filePath(name)).convertToFormat(QImage::Format_RGB32));
    return pages;
}

/// A slide as the audience sees it.
inline QImage onWall(const Slide &slide)
{
    QImage image(exportedPixels, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    paintAnew({.slide = slide}, painter, image.rect());
    return image;
}

/// How much the channels of two images differ on average, of 255, at the size of the first one.
inline double meanDifference(const QImage &one, const QImage &other)
{
    const QImage scaled = other.scaled(one.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                              .convertToFormat(QImage::Format_RGB32);
    const QImage whole = one.convertToFormat(QImage::Format_RGB32);
    qint64 sum = 0;
    for (int y = 0; y < whole.height(); ++y) {
        const auto *a = reinterpret_cast<const QRgb *>(whole.constScanLine(y));
        const auto *b = reinterpret_cast<const QRgb *>(scaled.constScanLine(y));
        for (int x = 0; x < whole.width(); ++x) {
            sum += std::abs(qRed(a[x]) - qRed(b[x])) + std::abs(qGreen(a[x]) - qGreen(b[x]))
                + std::abs(qBlue(a[x]) - qBlue(b[x]));
        }
    }
    return double(sum) / (3.0 * whole.width() * whole.height());
}

inline QList<FlattenedSlide> demoSlides()
{
    return flattenedSlides(ProjectTemplates::demoProject(someTime()));
}

} // namespace quenara::test
