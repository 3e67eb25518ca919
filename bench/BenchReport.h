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

/// Prints one result row. goal <= 0 means "no goal, for information".
inline void report(const QString& name, double measuredNs, double baselineNs, double goal,
                   const QString& baseline)
{
    const double ratio = baselineNs > 0 ? measuredNs / baselineNs : 0.0;
    QTextStream(stdout) << "BENCH " << name << '\t' << qint64(measuredNs) << '\t'
                        << qint64(baselineNs) << '\t' << QString::number(ratio, 'f', 2) << '\t'
                        << QString::number(goal, 'f', 2) << '\t' << baseline << Qt::endl;
}

} // namespace bench
