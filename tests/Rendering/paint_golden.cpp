// paint_golden SHEET DETAILS [FOLDER]: lays everything that the renderer shows out on one image, to
// be looked at, and on another what a picky eye looks for, at the size of a screen and enlarged.
// With a folder, leaves the golden images in it, and names those that it changes.

#include "Fonts.h"
#include "GoldenSlides.h"
#include "GuiTestSupport.h"

#include <QDir>

#include <algorithm>
#include <array>
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

/// What to look at closely, and from where on.
struct Detail
{
    const char *slide;
    QPoint corner;
};

constexpr std::array details{
    Detail{"template-welcome", {960, 540}}, // no rings
    Detail{"background-image-dimmed", {300, 60}}, // no bands
    Detail{"text-whole-word", {400, 400}}, // words whole
    Detail{"layer-image-drawing", {100, 240}}, // sharp edges
    Detail{"layer-image-profile", {560, 400}}, // alike
    Detail{"layer-image-rings", {600, 540}}, // no patterns where lines are too fine
    Detail{"layer-image-rings", {1300, 300}}, // no steps
    Detail{"background-image-blurred", {0, 0}}, // whole to the edges
    Detail{"layer-image-missing", {100, 150}}, // dashes whole
    Detail{"text-weights", {300, 200}}, // letters that stand on whole rows
    Detail{"text-low-fill", {300, 400}}, // marks inside the fill
    Detail{"layer-lower-third-one-line", {120, 760}}, // in the middle
    Detail{"arabic-centerLyric", {720, 330}},
    Detail{"hebrew-centerLyric", {720, 330}},
    Detail{"devanagari-centerLyric", {720, 330}},
    Detail{"thai-centerLyric", {720, 330}},
    Detail{"japanese-centerLyric", {720, 330}},
    Detail{"emoji-centerLyric", {500, 330}},
};

/// Each detail's slide as a screen shows it, and a part of it four times enlarged beside it.
QImage detailSheet(const QList<GoldenSlide> &slides)
{
    constexpr QSize screen(1920, 1080);
    constexpr int enlarged = 4;
    constexpr int pairs = 2; // beside each other
    constexpr QSize cell(2 * (screen.width() + gap), screen.height() + gap);
    QImage sheet(pairs * cell.width(), (int(details.size()) + 1) / pairs * cell.height(),
                 QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    QPoint place;
    for (const Detail &detail : details) {
        const auto slide = std::find_if(slides.begin(), slides.end(), [&](const GoldenSlide &it) {
            return it.name == QLatin1String(detail.slide);
        });
        if (slide == slides.end())
            qFatal("no slide is called %s", detail.slide);
        const QImage image = rendered(slide->view, screen);
        painter.drawImage(place, image);
        painter.drawImage(QRect(place + QPoint(screen.width() + gap, 0), screen), image,
                          QRect(detail.corner, screen / enlarged));
        place =
            place.x() == 0 ? QPoint(cell.width(), place.y()) : QPoint(0, place.y() + cell.height());
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
    if (arguments.size() < 3 || arguments.size() > 4) {
        std::fputs("usage: paint_golden SHEET DETAILS [FOLDER]\n", stderr);
        return 2;
    }
    if (arguments.size() == 4 && !rewrite(QDir(arguments.at(3))))
        return 1;
    const QList<GoldenSlide> slides = goldenSlides() + machineSlides() + scriptSlides();
    const bool isSaved =
        contactSheet(slides).save(arguments.at(1)) && detailSheet(slides).save(arguments.at(2));
    return isSaved ? 0 : 1;
}
