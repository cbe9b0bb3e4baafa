#include "CanvasBenchmarks.h"
#include "EditingBenchmarks.h"
#include "ExportBenchmarks.h"
#include "ExtremeBenchmarks.h"
#include "FileBenchmarks.h"
#include "InterfaceStyle.h"
#include "RecoveryBenchmarks.h"
#include "RenderingBenchmarks.h"
#include "StageBenchmarks.h"
#include "WalkThrough.h"
#include "WorkplaceBenchmarks.h"
#include "ZelvoImageLoader.h"

#include <QApplication>

#include <algorithm>

namespace {

using namespace quenara::bench;

struct Group
{
    const char *name;
    QList<Figure> (*figures)();
};

constexpr Group groups[] = {
    {"editing", editingFigures},   {"files", fileFigures},       {"rendering", renderingFigures},
    {"stage", stageFigures},       {"canvas", canvasFigures},    {"workplace", workplaceFigures},
    {"recovery", recoveryFigures}, {"extremes", extremeFigures}, {"export", exportFigures},
};

} // namespace

/// Prints the figures of the groups that are named, else of all; fails when one is beyond its
/// limit.
int main(int argc, char *argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments.at(1) == QLatin1String(memoryArgument)) {
        reportMemoryOfLoading(arguments.at(2));
        return 0;
    }
    quenara::setUpInterface();
    quenara::ZelvoImageLoader::limitMemory();
    quenara::applyTheme(quenara::ZelvoTheme::dark());
    if (arguments.size() == 3 && arguments.at(1) == QLatin1String(walkThroughArgument)) {
        reportWalkThrough(arguments.at(2));
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    QStringList wanted;
    for (int i = 1; i < argc; ++i)
        wanted.append(QString::fromLocal8Bit(argv[i]));
    QList<Figure> figures;
    for (const Group &group : groups) {
        if (wanted.isEmpty() || wanted.contains(QLatin1String(group.name)))
            figures += group.figures();
    }
    printTable(figures);
    return std::all_of(figures.cbegin(), figures.cend(),
                       [](const Figure &figure) { return figure.keepsItsLimit(); })
        ? 0
        : 1;
}
