#include "CanvasBenchmarks.h"
#include "EditingBenchmarks.h"
#include "FileBenchmarks.h"
#include "RenderingBenchmarks.h"
#include "StageBenchmarks.h"

#include <QApplication>

#include <algorithm>

/// Prints every figure; fails when one is beyond its limit.
int main(int argc, char *argv[])
{
    using namespace quenara::bench;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments.at(1) == QLatin1String(memoryArgument)) {
        reportMemoryOfLoading(arguments.at(2));
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    const QList<Figure> figures =
        editingFigures() + fileFigures() + renderingFigures() + stageFigures() + canvasFigures();
    printTable(figures);
    return std::all_of(figures.cbegin(), figures.cend(),
                       [](const Figure &figure) { return figure.keepsItsLimit(); })
        ? 0
        : 1;
}
