#include "EditingBenchmarks.h"
#include "FileBenchmarks.h"

#include <algorithm>

/// Prints every figure; fails when one is beyond its limit.
int main(int argc, char *argv[])
{
    using namespace quenara::bench;
    benchmark::Initialize(&argc, argv);
    const QList<Figure> figures = editingFigures() + fileFigures();
    printTable(figures);
    return std::all_of(figures.cbegin(), figures.cend(),
                       [](const Figure &figure) { return figure.keepsItsLimit(); })
        ? 0
        : 1;
}
