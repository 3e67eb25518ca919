#pragma once

// Shared by the benchmark programs: timing with a warm-up and the median of several runs, and one
// output line per result, which ./run bench collects:
//   BENCH <name>\t<measured ns>\t<baseline ns>\t<ratio>\t<goal ratio>\t<what the baseline is>

#include <QElapsedTimer>
#include <QString>
#include <QTextStream>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <utility>
#include <vector>

namespace bench {

/// Median wall time of one call of work, in nanoseconds, after one warm-up call.
inline double medianNanoseconds(const std::function<void()>& work, int runs = 7)
{
    work();
    std::vector<qint64> times;
    times.reserve(runs);
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(timer.nsecsElapsed());
    }
    std::sort(times.begin(), times.end());
    return double(times[times.size() / 2]);
}

/// Median wall times of a and of b, in nanoseconds, after one warm-up call of each. The two are
/// timed in turn, run by run, so that a busy spell of the machine falls on both alike: use it for
/// every ratio whose two sides can live side by side.
inline std::pair<double, double> pairedMedianNanoseconds(
    const std::function<void()>& a, const std::function<void()>& b, int runs = 7)
{
    a();
    b();
    std::vector<qint64> timesA;
    std::vector<qint64> timesB;
    timesA.reserve(runs);
    timesB.reserve(runs);
    QElapsedTimer timer;
    for (int i = 0; i < runs; ++i) {
        timer.start();
        a();
        timesA.push_back(timer.nsecsElapsed());
        timer.start();
        b();
        timesB.push_back(timer.nsecsElapsed());
    }
    std::sort(timesA.begin(), timesA.end());
    std::sort(timesB.begin(), timesB.end());
    return {double(timesA[timesA.size() / 2]), double(timesB[timesB.size() / 2])};
}

/// Prints one result row. goal <= 0 means "no goal, for information".
inline void report(
    const QString& name, double measuredNs, double baselineNs, double goal, const QString& baseline)
{
    const double ratio = baselineNs > 0 ? measuredNs / baselineNs : 0.0;
    QTextStream(stdout) << "BENCH " << name << '\t' << qint64(measuredNs) << '\t'
                        << qint64(baselineNs) << '\t' << QString::number(ratio, 'f', 2) << '\t'
                        << QString::number(goal, 'f', 2) << '\t' << baseline << Qt::endl;
}

} // namespace bench
