// paint_golden SHEET [FOLDER]: lays everything that the renderer shows out on one image, to be
// looked at. With a folder, leaves the golden images in it, and names those that it changes.

#include "Fonts.h"
#include "GoldenSlides.h"
#include "GuiTestSupport.h"

#include <QDir>

#include <algorithm>
#include <cstdio>
#include <utility>

using namespace quenara;
using namespace quenara::test;

namespace {

constexpr QSize tile = goldenSizes.front();
constexpr int columns = 5;
constexpr int gap = 16;
constexpr int labelHeight = 24;
constexpr int bestCompression = 0; // of the qualities of a PNG

QImage contactSheet(const QList<GoldenSlide> &slides)
{
    const int rows = (int(slides.size()) + columns - 1) / columns;
    const QSize cell(tile.width() + gap, tile.height() + gap + labelHeight);
    QImage sheet(columns * cell.width() + gap, rows * cell.height() + gap, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.setFont(systemFont(14, QFont::Medium));
    for (int i = 0; i < slides.size(); ++i) {
        const GoldenSlide &slide = slides.at(i);
        const QPoint place(gap + i % columns * cell.width(), gap + i / columns * cell.height());
        painter.drawImage(place, rendered(slide.view, tile));
        painter.drawText(QRect(place + QPoint(0, tile.height()), QSize(tile.width(), labelHeight)),
                         Qt::AlignLeft | Qt::AlignVCenter, slide.name);
    }
    return sheet;
}

/// Leaves an image alone that shows the same already. False if it could not be written.
bool rewrite(const QString &path, const QImage &painted)
{
    const QImage golden(path);
    if (golden.size() == painted.size() && largestDifference(painted, golden) <= goldenTolerance)
        return true;
    std::puts(qPrintable(path));
    return painted.convertToFormat(QImage::Format_RGB888).save(path, "PNG", bestCompression);
}

/// False if an image could not be written.
bool rewrite(const QDir &folder)
{
    QStringList gone = folder.entryList(QDir::Files);
    const auto written = [&](const GoldenSlide &slide) {
        return std::all_of(goldenSizes.begin(), goldenSizes.end(), [&](const QSize &size) {
            const QString name = goldenFileName(slide, size);
            gone.removeOne(name);
            return rewrite(folder.filePath(name), rendered(slide.view, size));
        });
    };
    const QList<GoldenSlide> slides = goldenSlides();
    const bool isWritten =
        QDir().mkpath(folder.path()) && std::all_of(slides.begin(), slides.end(), written);
    for (const QString &name : std::as_const(gone))
        QFile::remove(folder.filePath(name));
    return isWritten;
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    setUpApplication();
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2 || arguments.size() > 3) {
        std::fputs("usage: paint_golden SHEET [FOLDER]\n", stderr);
        return 2;
    }
    if (arguments.size() == 3 && !rewrite(QDir(arguments.at(2))))
        return 1;
    return contactSheet(goldenSlides() + machineSlides() + scriptSlides()).save(arguments.at(1))
        ? 0
        : 1;
}
