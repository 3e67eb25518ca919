#include "ProgressUpdater.h"

#include <QCoreApplication>

#include <chrono>

namespace {

constexpr qint64 minimumIntervalMs = 20;

qint64 monotonicMs()
{
    using namespace std::chrono;
    // Offset by one so that a clock starting at zero never reads as "never updated".
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count() + 1;
}

} // namespace

ProgressUpdater::~ProgressUpdater() = default;

void ProgressUpdater::updateProgress(const char* /*message*/, int /*value*/) const
{
    const qint64 now = monotonicMs();
    if (lastUpdateMs != 0 && now - lastUpdateMs < minimumIntervalMs)
        return;
    QCoreApplication::processEvents();
    lastUpdateMs = now;
}
