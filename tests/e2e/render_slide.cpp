// render_slide FILE INDEX WIDTH HEIGHT IMAGE: writes what an audience screen of that size shows
// of the slide at a 0-based place of the show, or of no slide when the place is -1. The end-to-end
// tests compare screens with it.

#include "Fonts.h"
#include "ProjectFileService.h"
#include "RenderCaches.h"
#include "Show.h"
#include "SlideRendererView.h"

#include <QGuiApplication>

#include <cstdio>

using namespace quenara;

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 6) {
        std::fputs("usage: render_slide FILE INDEX WIDTH HEIGHT IMAGE\n", stderr);
        return 2;
    }
    loadBundledFonts();
    ZelvoImageLoader::limitMemory();
    const ZelvoProject project = ProjectFileService::load(QUrl::fromLocalFile(arguments.at(1)),
                                                          QDateTime::currentDateTimeUtc());
    std::optional<Slide> slide;
    if (const auto position = positionAt(project, arguments.at(2).toInt()))
        slide = slideAt(project, *position);
    QImage image(arguments.at(3).toInt(), arguments.at(4).toInt(), QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    RenderCaches caches;
    SlideRendererView{.slide = slide}.paint(painter, image.rect(), caches);
    painter.end();
    return image.save(arguments.at(5)) ? 0 : 1;
}
