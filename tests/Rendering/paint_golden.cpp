// paint_golden SHEET [FOLDER]: lays everything that the renderer shows out on one image, to be
// looked at. With a folder, leaves the golden images in it.

#include "Fonts.h"
#include "GoldenSlides.h"
#include "GuiTestSupport.h"

#include <QDir>

#include <algorithm>
#include <cstdio>

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

/// False if an image could not be written.
bool rewrite(const QDir &folder)
{
    for (const QString &name : folder.entryList(QDir::Files))
        QFile::remove(folder.filePath(name));
    const auto written = [&](const GoldenSlide &slide) {
        return std::all_of(goldenSizes.begin(), goldenSizes.end(), [&](const QSize &size) {
            return rendered(slide.view, size)
                .convertToFormat(QImage::Format_RGB888)
                .save(folder.filePath(goldenFileName(slide, size)), "PNG", bestCompression);
        });
    };
    const QList<GoldenSlide> slides = goldenSlides();
    return QDir().mkpath(folder.path()) && std::all_of(slides.begin(), slides.end(), written);
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
    return contactSheet(goldenSlides() + machineSlides()).save(arguments.at(1)) ? 0 : 1;
}
