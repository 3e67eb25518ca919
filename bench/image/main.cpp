// Image helpers on 4096 x 4096 ARGB32 images, each against a memcpy of the pixels it has to
// touch, measured in the same run; and the parallel pixel loop of removeAlphaChannel against the
// same call confined to one thread.

#include "BenchReport.h"

#include <guicore/utility/image/ImageComparator.h>
#include <guicore/utility/image/ImageMerger.h>
#include <guicore/utility/image/QImageHelper.h>

#include <QColor>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <vector>

namespace {

constexpr int SIZE = 4096;

// Deterministic noise, so that runs compare the same pixels.
QImage makeImage(quint32 seed, bool withTransparency)
{
    QImage image(SIZE, SIZE, QImage::Format_ARGB32);
    quint32 state = seed;
    for (int y = 0; y < SIZE; ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < SIZE; ++x) {
            state = state * 1664525u + 1013904223u;
            QRgb pixel = state | 0xff000000u;
            // A third fully transparent, a sixth partially: an exported drawing on a clear
            // background.
            if (withTransparency) {
                const quint32 kind = (state >> 8) % 6;
                if (kind < 2)
                    pixel &= 0x00ffffffu;
                else if (kind == 2)
                    pixel = (pixel & 0x00ffffffu) | 0x80000000u;
            }
            line[x] = pixel;
        }
    }
    return image;
}

// b differs from a in one pixel of every seven, by a few levels or by a lot.
QImage makeVariant(const QImage& a)
{
    QImage b = a.copy();
    for (int y = 0; y < SIZE; ++y) {
        auto* line = reinterpret_cast<QRgb*>(b.scanLine(y));
        for (int x = (y % 7); x < SIZE; x += 7)
            line[x] ^= (x & 1) ? 0x00030303u : 0x00808080u;
    }
    return b;
}

// Median of several timed calls of work, each after an untimed prepare step, after one warm-up.
double medianWithPreparation(
    const std::function<void()>& prepare, const std::function<void()>& work, int runs = 7)
{
    prepare();
    work();
    std::vector<qint64> times;
    for (int i = 0; i < runs; ++i) {
        prepare();
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(timer.nsecsElapsed());
    }
    std::sort(times.begin(), times.end());
    return double(times[times.size() / 2]);
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);

    const QImage a = makeImage(1, false);
    const QImage b = makeVariant(a);
    const QImage transparent = makeImage(2, true);
    const size_t bytes = size_t(a.sizeInBytes());

    // The baseline: one image's pixels copied into a buffer that is already mapped.
    std::vector<uchar> target(bytes);
    const double memcpyNs
        = bench::medianNanoseconds([&] { std::memcpy(target.data(), a.constBits(), bytes); });
    const QString baseline = QStringLiteral("memcpy of one 4096x4096 ARGB32 image (64 MiB)");

    volatile float similarity = 0;
    const double compareNs = bench::medianNanoseconds(
        [&] { similarity = ImageComparator::compareImages(a, b, 0.1f); });
    bench::report(QStringLiteral("image_compareImages"), compareNs, memcpyNs, 4.0, baseline);

    // A merge reads both images and writes a new one of twice the size: two image copies.
    const QString twoCopies = QStringLiteral("memcpy of two 4096x4096 ARGB32 images (128 MiB)");
    const QColor background(Qt::darkCyan);
    const double mergeH = bench::medianNanoseconds(
        [&] { QImage merged = ImageMerger::mergeHorizontally(a, b, background); });
    bench::report(QStringLiteral("image_mergeHorizontally"), mergeH, 2 * memcpyNs, 3.0, twoCopies);
    const double mergeV = bench::medianNanoseconds(
        [&] { QImage merged = ImageMerger::mergeVertically(a, b, background); });
    bench::report(QStringLiteral("image_mergeVertically"), mergeV, 2 * memcpyNs, 3.0, twoCopies);

    // removeAlphaChannel works in place: every run gets its own deep copy, made untimed.
    QImage work;
    const auto prepare = [&] { work = transparent.copy(); };
    const double parallelNs = medianWithPreparation(
        prepare, [&] { image2d::QImageHelper::removeAlphaChannel(work, Qt::white); });
    bench::report(QStringLiteral("image_removeAlphaChannel"), parallelNs, memcpyNs, 4.0, baseline);

    tbb::task_arena oneThread(1);
    const double serialNs = medianWithPreparation(prepare, [&] {
        oneThread.execute([&] { image2d::QImageHelper::removeAlphaChannel(work, Qt::white); });
    });
    bench::report(QStringLiteral("image_removeAlphaChannel_parallel_vs_serial"), parallelNs,
        serialNs, 0.625,
        QStringLiteral("the same call in a one-thread arena (%1 threads available)")
            .arg(tbb::this_task_arena::max_concurrency()));

    // For reading the row above: the same comparison on a loop that only computes, so that a
    // machine busy with other work shows here as a ratio near 1 whatever the image code does.
    volatile double sink = 0;
    const auto computeLoop = [&] {
        tbb::parallel_for(
            tbb::blocked_range<int>(0, 1 << 24), [&](const tbb::blocked_range<int>& r) {
                double sum = 0;
                for (int i = r.begin(); i < r.end(); ++i)
                    sum += std::sqrt(double(i));
                sink = sink + sum;
            });
    };
    const double computeParallelNs = bench::medianNanoseconds(computeLoop);
    const double computeSerialNs
        = bench::medianNanoseconds([&] { oneThread.execute(computeLoop); });
    bench::report(QStringLiteral("image_parallel_capacity_compute_loop"), computeParallelNs,
        computeSerialNs, 0.0,
        QStringLiteral("a compute-only parallel_for in a one-thread arena (information)"));

    return similarity >= 0 ? 0 : 1;
}
