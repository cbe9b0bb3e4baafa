#include "Figures.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>
#include <malloc.h>
#include <vector>

namespace quenara::bench {

namespace {

using Clock = std::chrono::steady_clock;

/// Keeps what the benchmark library measures instead of printing it.
class Collector : public benchmark::BenchmarkReporter
{
public:
    double nanoseconds = 0;

    bool ReportContext(const Context & /*context*/) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs)
            nanoseconds = run.real_accumulated_time * 1e9 / double(run.iterations);
    }
};

QString text(double value, Figure::Unit unit)
{
    if (unit == Figure::Unit::bytes && value < 1024 * 1024)
        return QStringLiteral("%1 kB").arg(value / 1024, 0, 'f', 2);
    if (unit == Figure::Unit::bytes)
        return QStringLiteral("%1 MB").arg(value / (1024 * 1024), 0, 'f', 2);
    if (value < 1e6)
        return QStringLiteral("%1 us").arg(value / 1e3, 0, 'f', 1);
    return QStringLiteral("%1 ms").arg(value / 1e6, 0, 'f', 1);
}

} // namespace

double nanoseconds(const TimedLoop &loop, bool isManual)
{
    benchmark::ClearRegisteredBenchmarks();
    auto *registered = benchmark::RegisterBenchmark("figure", loop);
    if (isManual)
        registered->UseManualTime();
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);
    return collector.nanoseconds;
}

void Times::measure(const std::function<void()> &operation)
{
    const Clock::time_point start = Clock::now();
    operation();
    const std::chrono::duration<double, std::nano> taken = Clock::now() - start;
    m_times.append(taken.count());
}

double Times::within(double share) const
{
    if (m_times.isEmpty())
        return std::numeric_limits<double>::infinity();
    QList<double> times = m_times;
    const auto place = times.begin() + qsizetype(share * double(times.size() - 1));
    std::nth_element(times.begin(), place, times.end());
    return *place;
}

double nanosecondsOf(const std::function<void()> &operation, const std::function<void()> &restore)
{
    return nanoseconds(
        [&](benchmark::State &state) {
            for ([[maybe_unused]] auto iteration : state) {
                const Clock::time_point start = Clock::now();
                operation();
                const std::chrono::duration<double> taken = Clock::now() - start;
                state.SetIterationTime(taken.count());
                restore();
            }
        },
        true);
}

double heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd);
}

void printTable(const QList<Figure> &figures)
{
    const auto print = [](const QString &name, const QString &value, const QString &yardstickName,
                          const QString &yardstick, const QString &ratio, const QString &limit,
                          const char *mark) {
        std::printf("%-50s %12s   %-28s %12s %9s %10s%s\n", qPrintable(name), qPrintable(value),
                    qPrintable(yardstickName), qPrintable(yardstick), qPrintable(ratio),
                    qPrintable(limit), mark);
    };
    const auto word = [](const char *latin1) { return QString::fromLatin1(latin1); };
    print(word("figure"), word("measured"), word("yardstick"), word("measured"), word("ratio"),
          word("limit"), "");
    for (const Figure &figure : figures) {
        print(figure.name, text(figure.value, figure.unit), figure.yardstickName,
              text(figure.yardstick, figure.unit),
              QString::number(figure.value / figure.yardstick, 'f', 3),
              figure.limit ? text(*figure.limit, figure.unit) : word("-"),
              figure.keepsItsLimit() ? "" : "  OVER");
    }
    const auto over = std::count_if(figures.cbegin(), figures.cend(),
                                    [](const Figure &figure) { return !figure.keepsItsLimit(); });
    std::printf("%d of %d figures are over their limit\n", int(over), int(figures.size()));
}

} // namespace quenara::bench
