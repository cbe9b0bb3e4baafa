// write_show demo|photographs FILE: writes a project that scripts/bench-outputs shows: the demo
// service, or 500 slides of which every tenth stands on a photograph of its own.

#include "Photograph.h"
#include "ProjectFileService.h"
#include "ProjectGenerator.h"
#include "ProjectTemplates.h"

#include <QGuiApplication>
#include <QUrl>

#include <cstdio>

using namespace quenara;

namespace {

ZelvoProject showOfPhotographs()
{
    constexpr int slideCount = 500;
    constexpr int photographEvery = 10;
    ZelvoProject project =
        bench::generateProject({.slideCount = slideCount, .itemCount = 10, .imageCount = 0});
    int index = 0;
    for (ServiceItem &item : project.serviceItems) {
        for (Slide &slide : item.slides) {
            if (index % photographEvery == 0) {
                slide.design.background.kind = SlideBackgroundKind::image;
                slide.design.background.image = bench::photograph(quint32(index + 1));
            }
            ++index;
        }
    }
    return project;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: write_show demo|photographs FILE\n", stderr);
        return 2;
    }
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const ZelvoProject project = arguments.at(1) == QLatin1String("demo")
        ? ProjectTemplates::demoProject(now)
        : showOfPhotographs();
    ProjectFileService::save(project, QUrl::fromLocalFile(arguments.at(2)), now);
    return 0;
}
