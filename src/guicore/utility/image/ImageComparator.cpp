#include "ImageComparator.h"

#include "ImageScanLines_p.h"

#include <guicore/Logging_p.h>

#include <QImage>

namespace {

// The distance of two pixels is d = sqrt(dr^2 + dg^2 + db^2) / sqrt(3), truncated, so d >= n
// exactly when dr^2 + dg^2 + db^2 >= 3 n^2. A pixel pair counts as different when d / 255 exceeds
// the tolerance, which holds for every d from the smallest one that does: comparing the sum of
// squares with 3 n^2 for that n decides it without a square root or floating point per pixel.
// Above every possible sum (3 * 255^2) when no distance exceeds the tolerance.
int differenceThreshold(float tolerance)
{
    int smallest = 0;
    while (smallest <= 255 && !(smallest / 255.0 > tolerance))
        ++smallest;
    return 3 * smallest * smallest;
}

} // namespace

float ImageComparator::compareImages(QImage a, QImage b, float tolerance)
{
    if (a.isNull() || !a.rect().isValid()) {
        qCWarning(lcUtility, "ImageComparator : invalid input images!");
        return -1.0f;
    }
    if (a.rect() != b.rect()) {
        qCWarning(lcUtility, "ImageComparator : input images not the same size!");
        return -1.0f;
    }

    const int threshold = differenceThreshold(tolerance);
    const image2d::detail::Argb32View viewA(a);
    const image2d::detail::Argb32View viewB(b);
    const int width = a.width();
    const int height = a.height();
    qint64 different = 0;
    for (int y = 0; y < height; ++y) {
        const QRgb* lineA = viewA.line(y);
        const QRgb* lineB = viewB.line(y);
        const QRgb maskA = viewA.alphaMask;
        const QRgb maskB = viewB.alphaMask;
        // Branch-free, so that the compiler vectorises it: equal pixels never count, even when
        // the tolerance is negative.
        int differentInLine = 0;
        for (int x = 0; x < width; ++x) {
            const QRgb pa = lineA[x] | maskA;
            const QRgb pb = lineB[x] | maskB;
            const int dr = qRed(pa) - qRed(pb);
            const int dg = qGreen(pa) - qGreen(pb);
            const int db = qBlue(pa) - qBlue(pb);
            const int sum = dr * dr + dg * dg + db * db;
            differentInLine += int(pa != pb) & int(sum >= threshold);
        }
        different += differentInLine;
    }
    const double total = double(width) * double(height);
    return static_cast<float>(100.0 - 100.0 * double(different) / total);
}
