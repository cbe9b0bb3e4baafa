#pragma once

#include <QList>
#include <QString>

#include <benchmark/benchmark.h>

#include <functional>
#include <optional>

namespace quenara::bench {

/// A measured value beside what it is compared with; times in nanoseconds, memory in bytes.
struct Figure
{
    enum class Unit { nanoseconds, bytes };

    QString name;
    double value = 0;
    QString yardstickName;
    double yardstick = 0;
    Unit unit = Unit::nanoseconds;
    std::optional<double> limit = std::nullopt; ///< in the unit of the value

    bool keepsItsLimit() const { return !limit || value <= *limit; }
};

using TimedLoop = std::function<void(benchmark::State &)>;

/// The mean time of one iteration of \a loop in nanoseconds. A loop that sets the time of each
/// iteration by hand says so with \a isManual.
double nanoseconds(const TimedLoop &loop, bool isManual = false);

/// The time of \a operation alone in a loop where \a restore undoes it.
double nanosecondsOf(const std::function<void()> &operation, const std::function<void()> &restore);

/// The times of single runs, the fastest of which are free of the machine's other work.
class Times
{
public:
    Times() = default;
    explicit Times(const QList<double> &times) : m_times(times) {}

    void measure(const std::function<void()> &operation);
    void append(const Times &others) { m_times += others.m_times; }
    /// The shortest in nanoseconds.
    double best() const { return within(0); }
    /// What the \a share of them, from the shortest on, took at most.
    double within(double share) const;

private:
    QList<double> m_times;
};

/// The bytes that the program holds of the heap.
double heapInUse();

/// One line with the names of the columns, then one a figure, marked when it is over its limit, and
/// the count of those that are.
void printTable(const QList<Figure> &figures);

} // namespace quenara::bench
